#include "ui/controls/FlowLayoutEngine.h"

#include <algorithm>
#include <limits>

namespace glimmet {

namespace {

qreal heightOf(const FlowLayoutEngine::Row &row)
{
    qreal height = 0;
    for (const QSizeF &item : row)
        height = std::max(height, item.height());
    return height;
}

} // namespace

QList<FlowLayoutEngine::Row> FlowLayoutEngine::computeRows(
    std::optional<qreal> proposedWidth, const QList<QSizeF> &items) const
{
    const qreal width = proposedWidth.value_or(std::numeric_limits<qreal>::infinity());
    QList<Row> rows{ Row() };
    qreal x = 0;
    for (const QSizeF &item : items) {
        const qreal advance = item.width() + spacing;
        if (x + advance > width && !rows.last().isEmpty()) {
            rows.append(Row());
            x = 0;
        }
        rows.last().append(item);
        x += advance;
    }
    return rows;
}

QSizeF FlowLayoutEngine::sizeThatFits(std::optional<qreal> proposedWidth, const QList<QSizeF> &items) const
{
    qreal height = -spacing;
    for (const Row &row : computeRows(proposedWidth, items))
        height += heightOf(row) + spacing;
    return { proposedWidth.value_or(0), std::max(height, 0.0) };
}

QList<QPointF> FlowLayoutEngine::placeSubviews(
    const QRectF &bounds, std::optional<qreal> proposedWidth, const QList<QSizeF> &items) const
{
    QList<QPointF> places;
    places.reserve(items.size());
    qreal y = bounds.top();
    for (const Row &row : computeRows(proposedWidth, items)) {
        qreal x = bounds.left();
        for (const QSizeF &item : row) {
            places.append({ x, y });
            x += item.width() + spacing;
        }
        y += heightOf(row) + spacing;
    }
    return places;
}

} // namespace glimmet
