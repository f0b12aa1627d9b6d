#pragma once

#include <optional>
#include <string>

namespace glimmet {

/// What a command line asks for besides running. Everything else is set in the panel.
struct CommandLine {
    enum class Wish { Run, Help, Version, Refuse };

    Wish wish = Wish::Run;
    std::string unknown = {}; ///< what is refused

    bool operator==(const CommandLine &) const = default;
};

/// Reads the arguments in their order; the first that asks for something, or is unknown, decides. "-session
/// ID" is how session managers start a program again; it is Qt's to understand.
CommandLine readCommandLine(int argc, const char *const argv[]);

/// Does what `line` asks for besides running, which takes neither a display nor a bus. The exit status where
/// that is all: 0, or 1 where standard output does not take it, or 2 for an argument that is refused.
std::optional<int> answered(const CommandLine &line, const char *version);

} // namespace glimmet
