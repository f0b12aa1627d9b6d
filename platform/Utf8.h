#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace glimmet {

/// `text` as UTF-8; none where it has no such form, which is the case for half a surrogate pair.
std::optional<QByteArray> exactUtf8(const QString &text);

/// The text behind `bytes`, a leading byte order mark included; none where they are not UTF-8.
std::optional<QString> textFromUtf8(const QByteArray &bytes);

} // namespace glimmet
