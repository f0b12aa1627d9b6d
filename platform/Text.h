#pragma once

#include <QString>

namespace glimmet {

/// `text` without blanks (spaces of any kind and tabs, but no line breaks) at both ends.
QString trimmedBlanks(const QString &text);

} // namespace glimmet
