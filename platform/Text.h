#pragma once

#include <QString>

namespace glimmet {

/// `text` without blanks (spaces of any kind and tabs, but no line breaks) at both ends.
QString trimmedBlanks(const QString &text);

/// `value` with one digit behind the point, as "%.1f" writes it in the C locale: a value halfway between two
/// goes to the even one, which QString's own would round up.
QString oneDecimal(double value);

} // namespace glimmet
