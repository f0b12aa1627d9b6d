#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace glimmet {

struct ScreenSpace;

/// Where a panel of `size` drops down from an item at `anchor` (logical): under an item in the upper half of
/// the screen, else above it, centred on it and wholly inside the available space. A panel that is too high
/// for that space is made lower.
QRect panelGeometry(QSize size, QPoint anchor, const ScreenSpace &screen);

} // namespace glimmet
