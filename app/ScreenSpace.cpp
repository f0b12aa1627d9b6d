#include "app/ScreenSpace.h"

#include <algorithm>
#include <cmath>

namespace glimmet {
namespace {

constexpr int gap = 4; // between the panel and what is around it
constexpr int highestBar = 64;

int scaled(int distance, double factor)
{
    return static_cast<int>(std::lround(distance * factor));
}

int clamped(int value, int low, int high)
{
    return std::max(low, std::min(value, high));
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

bool hasScreenAbove(const ScreenSpace &screen, const QList<ScreenSpace> &screens)
{
    const QRect own = screen.nativeGeometry();
    return std::any_of(screens.begin(), screens.end(), [&own](const ScreenSpace &other) {
        const QRect native = other.nativeGeometry();
        return native.bottom() < own.top() && native.left() <= own.right() && native.right() >= own.left();
    });
}

QRect panelGeometry(QSize size, QPoint anchor, const ScreenSpace &screen)
{
    QRect space = screen.available;
    const bool isTopItem = anchor.y() < screen.geometry.center().y();
    // With several screens nobody tells how much of each its bars take; an item near the edge tells of its
    // own bar.
    if (isTopItem && anchor.y() - screen.geometry.top() <= highestBar)
        space.setTop(std::max(space.top(), anchor.y()));
    const QSize fitting = size.boundedTo(space.size() - QSize(2 * gap, 2 * gap));
    const int rightmost = space.left() + space.width() - gap - fitting.width();
    const int lowest = space.top() + space.height() - gap - fitting.height();
    const int under = std::max(space.top(), anchor.y()) + gap;
    const int above = std::min(space.top() + space.height(), anchor.y()) - gap - fitting.height();
    return { QPoint(clamped(anchor.x() - fitting.width() / 2, space.left() + gap, rightmost),
                 clamped(isTopItem ? under : above, space.top() + gap, lowest)),
        fitting };
}

} // namespace glimmet
