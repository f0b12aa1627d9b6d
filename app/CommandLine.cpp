#include "app/CommandLine.h"

#include <cstdio>
#include <string_view>

namespace glimmet {
namespace {

constexpr const char *usage = "Usage: glimmet [--help | --version]\n";
constexpr const char *explanation =
    "One line of text in the menu bar. A click on it drops down a panel in which everything is set.\n"
    "\n"
    "  -h, --help     show this and end\n"
    "  -v, --version  show the version and end\n"
    "\n"
    "Started a second time in a session, glimmet opens the panel of the one that runs.\n";

/// The exit status once standard output has taken everything, or not.
int statusOfOutput(bool wasWritten)
{
    return wasWritten && std::fflush(stdout) == 0 ? 0 : 1;
}

} // namespace

CommandLine readCommandLine(int argc, const char *const argv[])
{
    using Wish = CommandLine::Wish;
    for (int number = 1; number < argc; ++number) {
        const std::string_view argument = argv[number];
        if (argument == "-h" || argument == "--help")
            return { .wish = Wish::Help };
        if (argument == "-v" || argument == "--version")
            return { .wish = Wish::Version };
        if (argument != "-session" || number + 1 == argc)
            return { .wish = Wish::Refuse, .unknown = std::string(argument) };
        ++number;
    }
    return {};
}

std::optional<int> answered(const CommandLine &line, const char *version)
{
    switch (line.wish) {
    case CommandLine::Wish::Run:
        return std::nullopt;
    case CommandLine::Wish::Help:
        return statusOfOutput(std::printf("%s%s", usage, explanation) >= 0);
    case CommandLine::Wish::Version:
        return statusOfOutput(std::printf("glimmet %s\n", version) >= 0);
    case CommandLine::Wish::Refuse:
        std::fprintf(stderr, "glimmet: unknown argument '%s'\n%s", line.unknown.c_str(), usage);
        return 2;
    }
    return std::nullopt;
}

} // namespace glimmet
