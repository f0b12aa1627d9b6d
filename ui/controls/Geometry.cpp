#include "ui/controls/Geometry.h"

#include <QPainterPath>

#include <algorithm>

namespace glimmet {

namespace {

constexpr qreal smallestScale = 0.4;
// Room for the focus ring around the item.
constexpr qreal revealMargin = 8;

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

QRegion Geometry::roundedRegion(const QSize &size, int radius)
{
    QPainterPath outline;
    outline.addRoundedRect(QRectF(QPointF(), QSizeF(size)), radius, radius);
    return QRegion(outline.toFillPolygon().toPolygon());
}

} // namespace glimmet
