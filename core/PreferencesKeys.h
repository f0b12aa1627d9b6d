#pragma once

#include <QString>

/// Everything that outlives a launch in the preferences store. Two keys carry the reverse-domain prefix and
/// the third does not: that is how stored files have them.
namespace glimmet::PreferencesKeys {

inline const QString quotes = QStringLiteral("me.kerno.glimmet.quotes"); ///< list of texts
inline const QString deadlines =
    QStringLiteral("me.kerno.glimmet.deadlines"); ///< data: JSON array of deadlines
inline const QString cryptoSymbols = QStringLiteral("glimmet.cryptoSymbols"); ///< list of texts

} // namespace glimmet::PreferencesKeys
