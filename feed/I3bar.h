#pragma once

#include "feed/Formats.h"

#include <string>
#include <string_view>

/// i3bar's protocol (https://i3wm.org/docs/i3bar-protocol.html), which swaybar speaks too.
namespace glimmet {

/// What stands before the first status line: a header that asks for clicks, and the beginning of the array of
/// lines with an empty one in it, so that a comma precedes every other.
std::string i3barOpening();

/// A status line: the block with the text, where there is one, and behind it `others`, an array of blocks as
/// another program wrote it, or nothing.
std::string i3barLine(const FeedText &text, std::string_view others);

/// The blocks of a status line that is plain text.
std::string plainBlocks(const std::string &line);

/// Whether a click, as i3bar tells of it, is one on the text with a button that opens the panel: any but
/// those of a wheel.
bool isClickOnText(const std::string &click);

/// Whether a program whose header this is wants to be told of clicks.
bool wantsClicks(const std::string &header);

} // namespace glimmet
