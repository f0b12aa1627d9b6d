#pragma once

#include <QString>

namespace glimmet {

/// The menu-bar text as a host can show it on one line: each run of line breaks or control characters is one
/// blank, everything else stays. A host that parses markup escapes it itself.
QString hostText(const QString &text);

} // namespace glimmet
