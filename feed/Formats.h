#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The text in the forms in which bars read it. All of it is UTF-8, and no form holds a line break.
namespace glimmet {

enum class FeedFormat {
    Plain, ///< the text itself
    Waybar, ///< JSON, for a custom module of Waybar
    I3bar, ///< i3bar's protocol, also swaybar's
    Polybar, ///< a line without polybar's tags
    Tmux, ///< a line without tmux's formats
    Genmon, ///< XML, for XFCE's generic monitor
};

/// None while glimmet is not there.
using FeedText = std::optional<std::string>;

/// What is printed for a text in a format; in that of i3bar, which needs more than the text, as plain text.
std::string formatted(FeedFormat format, const FeedText &text);

/// The text on one line; empty for none.
std::string plainLine(const FeedText &text);

/// `text` as a JSON string (RFC 8259), with its quotes.
std::string jsonString(std::string_view text);

/// `text` where Pango's markup is read, on one line.
std::string markupText(std::string_view text);

/// An object for a custom module of Waybar with `return-type` json (waybar-custom(5)). Waybar reads markup in
/// both texts; an empty one hides the module. The class is "absent" without a text, "warning" where the text
/// tells of an error, else "running".
std::string waybarLine(const FeedText &text);

/// The text where polybar reads its tags, such as colours and commands for clicks: it knows no escape, so
/// that something without a width stands between the two signs that begin one.
std::string polybarLine(const FeedText &text);

/// The text where tmux reads its formats and styles (tmux(1)).
std::string tmuxLine(const FeedText &text);

/// What XFCE's generic monitor reads: text, tooltip, and the command for a click on the text.
std::string genmonLine(const FeedText &text);

} // namespace glimmet
