#pragma once

#include <QString>

namespace glimmet {

/// The name under which the program is on the session bus, in the application menu and in the user's folders.
inline const QString programName = QStringLiteral("me.kerno.glimmet");

} // namespace glimmet
