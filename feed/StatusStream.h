#pragma once

#include "feed/ValueSplitter.h"

#include <string>
#include <string_view>
#include <vector>

namespace glimmet {

/// Reads what a status command prints: i3bar's protocol or, where it does not begin as that does, lines of
/// plain text. Both are what i3bar itself takes from such a command.
class StatusStream {
public:
    /// The status lines that end in `bytes`, the next piece of the stream, each as a JSON array of blocks.
    std::vector<std::string> take(std::string_view bytes);
    /// Whether the command wants to be told of clicks.
    bool wantsClicks() const { return m_wantsClicks; }
    /// Whether there is nothing more to read of it, since it broke the protocol.
    bool isBroken() const { return m_splitter.isBroken(); }

private:
    std::vector<std::string> takeValues(std::string_view bytes);
    std::vector<std::string> takeLines(std::string_view bytes);

    enum class Form { Unknown, Protocol, Lines };

    Form m_form = Form::Unknown;
    ValueSplitter m_splitter;
    std::string m_line;
    bool m_wantsClicks = false;
};

} // namespace glimmet
