#include "ui/controls/TargetMask.h"

#include <algorithm>

namespace glimmet {

QRectF TargetMask::areaOf(const QSizeF &size)
{
    constexpr qreal smallest = 24;
    const qreal besides = std::max(smallest - size.width(), 0.0) / 2;
    const qreal above = std::max(smallest - size.height(), 0.0) / 2;
    return QRectF(QPointF(), size).adjusted(-besides, -above, besides, above);
}

bool TargetMask::contains(const QPointF &point) const
{
    return m_target != nullptr && areaOf(m_target->size()).contains(point);
}

} // namespace glimmet
