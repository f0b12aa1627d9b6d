#pragma once

#include <QByteArray>
#include <QJsonDocument>

namespace glimmet {

/// The document in what was stored, a null one where it is none. Qt alone would take a byte order mark
/// (U+FEFF) away at the beginning of every text in it, where it is a character of the user's.
QJsonDocument documentOf(QByteArray json);

} // namespace glimmet
