#pragma once

#include <QString>

namespace glimmet {

/// The menu-bar text as a host can show it on one line: each run of line breaks or control characters is one
/// blank, everything else stays. A host that parses markup escapes it itself.
QString hostText(const QString &text);

/// Whether there is anything to see in `text`, and so to click on: not so where it has only blanks, controls
/// and characters that show nothing.
bool hasInk(const QString &text);

} // namespace glimmet
