#include "ui/controls/Geometry.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace glimmet {

namespace {

constexpr qreal smallestScale = 0.4;
// Room for the focus ring around the item, and for the edge that fades out what goes on beyond it
// (Theme.softEdge).
constexpr qreal revealMargin = 20;

} // namespace

qreal Geometry::fittingScale(qreal naturalWidth, qreal width)
{
    if (naturalWidth <= 0)
        return 1;
    return std::clamp(width / naturalWidth, smallestScale, 1.0);
}

qreal Geometry::offsetRevealing(QQuickItem *item, QQuickItem *content, qreal offset, qreal viewHeight)
{
    if (item == nullptr || content == nullptr || !content->isAncestorOf(item))
        return offset;
    // Its size, since the bounding rectangle of a text field is that of the text in it.
    const QRectF area = item->mapRectToItem(content, QRectF(QPointF(), item->size()));
    const qreal top = std::max(area.top() - revealMargin, 0.0);
    const qreal bottom = std::min(area.bottom() + revealMargin, content->height());
    return offsetRevealing(top, bottom, offset, viewHeight);
}

qreal Geometry::offsetRevealing(qreal top, qreal bottom, qreal offset, qreal viewHeight)
{
    return std::min(std::max(offset, bottom - viewHeight), top);
}

QQuickItem *Geometry::wholeAround(QQuickItem *item)
{
    while (item != nullptr && !item->property("revealedWhole").toBool())
        item = item->parentItem();
    return item;
}

QRegion Geometry::roundedRegion(const QSize &size, qreal radius)
{
    const int curved = std::min(qCeil(radius), size.height() / 2);
    QRegion region(QRect(QPoint(0, curved), size - QSize(0, 2 * curved)));
    for (int row = 0; row < curved; ++row) {
        // The middle of the row, measured from where the curve ends.
        const qreal height = std::max(radius - row - 0.5, 0.0);
        const int inset = qRound(radius - std::sqrt(radius * radius - height * height));
        const QRect pixels(inset, row, size.width() - 2 * inset, 1);
        region += pixels;
        region += pixels.translated(0, size.height() - 1 - 2 * row);
    }
    return region;
}

} // namespace glimmet
