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

const ScreenSpace &screenAt(const QList<ScreenSpace> &screens, QPoint native)
{
    for (const ScreenSpace &screen : screens) {
        if (screen.nativeGeometry().contains(native))
            return screen;
    }
    return screens.first();
}

} // namespace glimmet
