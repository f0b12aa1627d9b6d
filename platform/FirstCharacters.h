#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace glimmet {

/// The first `count` characters of UTF-8 text, as a reader counts them: a sign with its accents, or an emoji
/// of many parts, is one. Nothing where `bytes` are not valid UTF-8 anywhere.
std::optional<QString> firstCharacters(QByteArrayView bytes, int count);

} // namespace glimmet
