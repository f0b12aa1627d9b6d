#include "app/Screens.h"

#include <QGuiApplication>
#include <QScreen>

namespace glimmet {

ScreenSpace spaceOf(const QScreen &screen)
{
    return { screen.geometry(), screen.availableGeometry(), screen.devicePixelRatio() };
}

QList<ScreenSpace> allScreens()
{
    QList<ScreenSpace> spaces;
    for (const QScreen *screen : QGuiApplication::screens())
        spaces.append(spaceOf(*screen));
    return spaces;
}

} // namespace glimmet
