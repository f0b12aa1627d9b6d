#include "app/Screens.h"

#include "platform/desktop/X11.h"

#include <QGuiApplication>
#include <QScreen>

namespace glimmet {

ScreenSpace spaceOf(const QScreen &screen)
{
    const ScreenSpace space{ screen.geometry(), screen.availableGeometry(), screen.devicePixelRatio() };
    // Elsewhere both are in pixels, and the X server need not be asked each time.
    if (!qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return space;
    const QSize root = X11::rootSize().value_or(QSize());
    return withRoomInUnitsOf(space, X11::desktopSize().value_or(root), root);
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
