#include "feed/Formats.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace glimmet {
namespace {

bool isControl(char letter)
{
    return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7f;
}

std::string_view stateOf(const FeedText &text)
{
    if (!text)
        return "absent";
    return text->starts_with("⚠") ? "warning" : "running";
}

} // namespace

std::string formatted(FeedFormat format, const FeedText &text)
{
    switch (format) {
    case FeedFormat::Polybar:
        return polybarLine(text);
    case FeedFormat::Tmux:
        return tmuxLine(text);
    case FeedFormat::Waybar:
        return waybarLine(text);
    case FeedFormat::Genmon:
        return genmonLine(text);
    case FeedFormat::Plain:
    case FeedFormat::I3bar:
        break;
    }
    return plainLine(text);
}

std::string plainLine(const FeedText &text)
{
    std::string line = text.value_or("");
    std::replace_if(line.begin(), line.end(), isControl, ' ');
    return line;
}

std::string jsonString(std::string_view text)
{
    std::string json = "\"";
    for (const char letter : text) {
        if (letter == '"' || letter == '\\')
            json += { '\\', letter };
        else if (isControl(letter)) {
            std::array<char, 7> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(letter));
            json += escape.data();
        } else
            json += letter;
    }
    return json + '"';
}

std::string markupText(std::string_view text)
{
    std::string markup;
    for (const char letter : plainLine(std::string(text))) {
        if (letter == '&')
            markup += "&amp;";
        else if (letter == '<')
            markup += "&lt;";
        else if (letter == '>')
            markup += "&gt;";
        else
            markup += letter;
    }
    return markup;
}

std::string waybarLine(const FeedText &text)
{
    const std::string shown = jsonString(markupText(text.value_or("")));
    return R"({"text":)" + shown + R"(,"tooltip":)" + shown + R"(,"class":)" + jsonString(stateOf(text))
        + '}';
}

std::string polybarLine(const FeedText &text)
{
    constexpr std::string_view wordJoiner = "\u2060";
    std::string line;
    for (const char letter : plainLine(text)) {
        if (letter == '{' && line.ends_with('%'))
            line += wordJoiner;
        line += letter;
    }
    return line;
}

std::string tmuxLine(const FeedText &text)
{
    const std::string plain = plainLine(text);
    std::string line;
    for (std::size_t start = 0; start < plain.size();) {
        const std::size_t end = std::min(plain.find_first_not_of('#', start), plain.size());
        const bool isBeforeStyle = end < plain.size() && plain[end] == '[';
        // Two number signs are one where formats are read, and again where styles are; before a bracket tmux
        // leaves them to the styles alone.
        line.append((end - start) * (isBeforeStyle ? 2 : 4), '#');
        start = std::min(plain.find('#', end), plain.size());
        line.append(plain, end, start - end);
    }
    return line;
}

std::string genmonLine(const FeedText &text)
{
    const std::string shown = markupText(text.value_or(""));
    return "<txt>" + shown + "</txt><tool>" + shown + "</tool><txtclick>glimmet-feed --activate</txtclick>";
}

} // namespace glimmet
