#include "app/Screens.h"

#include "platform/desktop/X11.h"

#include <QGuiApplication>
#include <QScreen>

namespace glimmet {

ScreenSpace spaceOf(const QScreen &screen)
{
    return { screen.geometry(), screen.availableGeometry(), screen.devicePixelRatio() };
}

QList<ScreenSpace> allScreens()
{
    const QList<QRect> bars = X11::bars();
    QList<ScreenSpace> spaces;
    for (const QScreen *screen : QGuiApplication::screens())
        spaces.append(withoutBars(spaceOf(*screen), bars));
    return spaces;
}

} // namespace glimmet
