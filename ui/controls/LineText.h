#pragma once

#include <QString>

namespace glimmet {

/// A text as it stands in a field of one line: each line break (LF, CR, both as a pair, and those of Unicode)
/// is one blank. `position`, an offset into the text, follows it to where it stands then.
QString singleLine(const QString &text, int *position = nullptr);

/// The length of the emoji of several code points (a flag, a family, a hand with a colour) that ends at
/// `position` of `text`, in UTF-16 units; 0 where none does. Letters with marks are none: there Backspace
/// takes the marks one by one.
int emojiLengthBefore(const QString &text, int position);

} // namespace glimmet
