#pragma once

#include <QList>
#include <QPainterPath>
#include <QPointF>
#include <QSizeF>

/// The curve of a series of prices as plain functions. Prices may be any numbers; what is not finite is left
/// out. Lengths are logical pixels, y grows downwards.
namespace glimmet::PriceCurve {

/// What the height of a chart stands for.
struct Domain {
    double lowest = 0;
    double highest = 0;

    friend bool operator==(const Domain &, const Domain &) = default;
};

/// The range of the prices with a tenth of it added at both ends, so that the curve does not touch the edges;
/// one single value where all prices are equal, and 0 where there are none.
Domain domain(const QList<double> &prices);

/// The prices from left to right, evenly apart over the whole width, in the chart of this size. A single one
/// stands in the middle; equal ones halfway up.
QList<QPointF> points(const QList<double> &prices, const QSizeF &size);

/// The same curve of far fewer points where there are more than pixels to show them: of each stretch of half
/// a pixel the lowest and the highest, and both ends.
QList<QPointF> thinned(const QList<QPointF> &points);

/// A smooth line through all points that rises and falls only as they do: it goes beyond no price.
QPainterPath line(const QList<QPointF> &points);

/// What is between the line and `baseline`, the lower end of the chart.
QPainterPath area(const QList<QPointF> &points, qreal baseline);

} // namespace glimmet::PriceCurve
