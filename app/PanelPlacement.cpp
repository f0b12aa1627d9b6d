#include "app/PanelPlacement.h"

#include "app/ScreenSpace.h"

#include <algorithm>

namespace glimmet {
namespace {

constexpr int gap = 4; // between the panel and what is around it
constexpr int highestBar = 64;

int clamped(int value, int low, int high)
{
    return std::max(low, std::min(value, high));
}

} // namespace

QRect panelGeometry(QSize size, QPoint anchor, const ScreenSpace &screen)
{
    QRect space = screen.available;
    const bool isTopItem = anchor.y() < screen.geometry.center().y();
    // With several screens the X server does not tell how much of each its bars take; an item near the edge
    // tells of its own bar.
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
