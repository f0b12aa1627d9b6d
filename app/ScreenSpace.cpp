#include "app/ScreenSpace.h"

#include <algorithm>
#include <cmath>

namespace glimmet {
namespace {

int scaled(int distance, double factor)
{
    return static_cast<int>(std::lround(distance * factor));
}

} // namespace

QRect ScreenSpace::nativeGeometry() const
{
    return toNative(geometry);
}

QPoint ScreenSpace::toLogical(QPoint native) const
{
    const QPoint origin = geometry.topLeft();
    const QPoint offset = native - origin;
    return origin + QPoint(scaled(offset.x(), 1 / scale), scaled(offset.y(), 1 / scale));
}

QRect ScreenSpace::toNative(const QRect &logical) const
{
    const QPoint origin = geometry.topLeft();
    const QPoint offset = logical.topLeft() - origin;
    return { origin + QPoint(scaled(offset.x(), scale), scaled(offset.y(), scale)),
        QSize(scaled(logical.width(), scale), scaled(logical.height(), scale)) };
}

ScreenSpace withRoomInUnitsOf(ScreenSpace screen, QSize desktop, QSize root)
{
    if (desktop == root || desktop.isEmpty() || screen.available == screen.geometry)
        return screen;
    const double factor = double(root.width()) / desktop.width();
    const QPoint end = screen.available.bottomRight() + QPoint(1, 1);
    const QPoint start = screen.available.topLeft();
    const QPoint last(scaled(end.x(), factor) - 1, scaled(end.y(), factor) - 1);
    screen.available = QRect(QPoint(scaled(start.x(), factor), scaled(start.y(), factor)), last);
    screen.available &= screen.geometry;
    return screen;
}

ScreenSpace withoutBars(ScreenSpace screen, const QList<QRect> &bars)
{
    for (const QRect &native : bars) {
        const QPoint end = screen.toLogical(native.bottomRight() + QPoint(1, 1));
        const QRect bar(screen.toLogical(native.topLeft()), end - QPoint(1, 1));
        if (!screen.geometry.intersects(bar) || bar.width() < bar.height())
            continue;
        if (bar.center().y() < screen.geometry.center().y())
            screen.available.setTop(std::max(screen.available.top(), bar.bottom() + 1));
        else
            screen.available.setBottom(std::min(screen.available.bottom(), bar.top() - 1));
    }
    return screen;
}

const ScreenSpace &screenAt(const QList<ScreenSpace> &screens, QPoint native)
{
    for (const ScreenSpace &screen : screens) {
        if (screen.nativeGeometry().contains(native))
            return screen;
    }
    return screens.first();
}

} // namespace glimmet
