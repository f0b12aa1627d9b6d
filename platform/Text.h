#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace glimmet {

/// `text` without blanks (spaces of any kind and tabs, but no line breaks) at both ends.
QString trimmedBlanks(const QString &text);
/// Whether nothing but such blanks is in `text`.
bool isAllBlank(const QString &text);

/// `value` with one digit behind the point, as "%.1f" writes it in the C locale: a value halfway between two
/// goes to the even one, which QString's own would round up.
QString oneDecimal(double value);

/// `text` as UTF-8; none where it has no such form, which is the case for half a surrogate pair.
std::optional<QByteArray> exactUtf8(const QString &text);

/// The text behind `bytes`, a leading byte order mark included; none where they are not UTF-8.
std::optional<QString> textFromUtf8(const QByteArray &bytes);

/// Whether all of `bytes` is valid UTF-8.
bool isUtf8(QByteArrayView bytes);

/// As much of the UTF-8 text `bytes` as `size` bytes hold without breaking a code point.
QByteArrayView wholeCodePoints(QByteArrayView bytes, qsizetype size);

/// The first `count` characters of UTF-8 text, as a reader counts them: a sign with its accents, or an emoji
/// of many parts, is one. Nothing where `bytes` are not valid UTF-8 anywhere.
std::optional<QString> firstCharacters(QByteArrayView bytes, int count);

/// At most `most` such characters of `text`, two at least: the last is an ellipsis where any are left out.
QString shortened(const QString &text, int most);

} // namespace glimmet
