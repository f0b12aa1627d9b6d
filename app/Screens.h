#pragma once

#include "app/ScreenSpace.h"

class QScreen;

namespace glimmet {

ScreenSpace spaceOf(const QScreen &screen);
/// The desktop's screens, the primary one first.
QList<ScreenSpace> allScreens();

} // namespace glimmet
