#pragma once

#include "app/ScreenSpace.h"

class QScreen;

namespace glimmet {

/// As the window manager tells of it.
ScreenSpace spaceOf(const QScreen &screen);
/// The desktop's screens, the primary one first, without bars also where the window manager does not tell of
/// them.
QList<ScreenSpace> allScreens();

} // namespace glimmet
