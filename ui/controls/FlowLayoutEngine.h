#pragma once

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <optional>

namespace glimmet {

/// Lays out items of given sizes left to right, on further rows where the width runs out, like words in a
/// paragraph. Keeps nothing between calls; lengths are logical pixels. Without a proposed width everything is
/// on one row.
struct FlowLayoutEngine {
    qreal spacing = 0; ///< between the items of a row and between rows

    using Row = QList<QSizeF>;

    /// At least one row, which is empty only where there are no items. The spacing after an item counts: one
    /// that would fit but for it begins a new row. What is wider than the width has a row to itself.
    QList<Row> computeRows(std::optional<qreal> proposedWidth, const QList<QSizeF> &items) const;

    /// As high as the rows with the spacing between them; as wide as proposed, and 0 wide where nothing is.
    QSizeF sizeThatFits(std::optional<qreal> proposedWidth, const QList<QSizeF> &items) const;

    /// The top left corner of each item. Rows begin at the left of `bounds`; their items stand at their top.
    QList<QPointF> placeSubviews(
        const QRectF &bounds, std::optional<qreal> proposedWidth, const QList<QSizeF> &items) const;
};

} // namespace glimmet
