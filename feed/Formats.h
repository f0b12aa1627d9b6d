#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The text in the forms in which bars read it. All of it is UTF-8, and no form holds a line break.
namespace glimmet {

/// None while glimmet is not there.
using FeedText = std::optional<std::string>;

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

/// What XFCE's generic monitor reads: text, tooltip, and the command for a click on the text.
std::string genmonLine(const FeedText &text);

} // namespace glimmet
