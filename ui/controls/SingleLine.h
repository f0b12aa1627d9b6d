#pragma once

#include <QString>

namespace glimmet {

/// A text as it stands in a field of one line: each line break (LF, CR, both as a pair, and those of Unicode)
/// is one blank. `position`, an offset into the text, follows it to where it stands then.
QString singleLine(const QString &text, int *position = nullptr);

} // namespace glimmet
