#include "ui/editors/PriceCurve.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace glimmet::PriceCurve {

namespace {

constexpr qreal thinningStep = 0.5;

QList<double> finiteOnes(QList<double> prices)
{
    prices.removeIf([](double price) { return !std::isfinite(price); });
    return prices;
}

/// Where `price` is between the ends of the domain, from 0 to 1. Halved, since the whole range of enormous
/// prices is beyond a double.
double fraction(const Domain &domain, double price)
{
    const double range = domain.highest / 2 - domain.lowest / 2;
    if (!(range > 0))
        return 0.5;
    return (price / 2 - domain.lowest / 2) / range;
}

qreal slope(const QPointF &from, const QPointF &to)
{
    return (to.y() - from.y()) / (to.x() - from.x());
}

/// The harmonic mean of the slopes on both sides, and level at a turn: with it no piece of the curve leaves
/// the range of its ends.
qreal tangent(qreal before, qreal after)
{
    if (before * after <= 0)
        return 0;
    return 2 * before * after / (before + after);
}

QList<qreal> tangents(const QList<QPointF> &points)
{
    const qsizetype last = points.size() - 1;
    QList<qreal> tangents{ slope(points[0], points[1]) };
    for (qsizetype i = 1; i < last; ++i)
        tangents.append(tangent(slope(points[i - 1], points[i]), slope(points[i], points[i + 1])));
    tangents.append(slope(points[last - 1], points[last]));
    return tangents;
}

/// The lowest and the highest of the points from `first` to before `end`, in their order.
void appendExtremes(
    QList<QPointF> &kept, QList<QPointF>::const_iterator first, QList<QPointF>::const_iterator end)
{
    const auto lower = [](const QPointF &one, const QPointF &other) { return one.y() < other.y(); };
    auto [one, other] = std::minmax_element(first, end, lower);
    if (one > other)
        std::swap(one, other);
    kept.append(*one);
    if (one != other)
        kept.append(*other);
}

} // namespace

Domain domain(const QList<double> &prices)
{
    const QList<double> finite = finiteOnes(prices);
    if (finite.isEmpty())
        return {};
    const auto [lowest, highest] = std::minmax_element(finite.begin(), finite.end());
    const double tenth = *highest / 10 - *lowest / 10;
    constexpr double greatest = std::numeric_limits<double>::max();
    return { std::max(*lowest - tenth, -greatest), std::min(*highest + tenth, greatest) };
}

QList<QPointF> points(const QList<double> &prices, const QSizeF &size)
{
    const QList<double> finite = finiteOnes(prices);
    const Domain range = domain(finite);
    const auto steps = static_cast<qreal>(finite.size() - 1);
    QList<QPointF> points;
    points.reserve(finite.size());
    for (qsizetype i = 0; i < finite.size(); ++i) {
        const qreal x = steps > 0 ? static_cast<qreal>(i) / steps : 0.5;
        points.append({ x * size.width(), (1 - fraction(range, finite[i])) * size.height() });
    }
    return points;
}

QList<QPointF> thinned(const QList<QPointF> &points)
{
    if (points.size() < 3)
        return points;
    const qreal room = points.last().x() - points.first().x();
    if (static_cast<qreal>(points.size()) <= 2 * room / thinningStep)
        return points;
    QList<QPointF> kept{ points.first() };
    const auto last = points.end() - 1;
    for (auto first = points.begin() + 1; first < last;) {
        const qreal stretch = std::floor(first->x() / thinningStep);
        const auto end = std::find_if(first, last,
            [stretch](const QPointF &point) { return std::floor(point.x() / thinningStep) > stretch; });
        appendExtremes(kept, first, end);
        first = end;
    }
    kept.append(points.last());
    return kept;
}

QPainterPath line(const QList<QPointF> &points)
{
    if (points.isEmpty())
        return {};
    QPainterPath path(points.first());
    if (points.size() == 1)
        return path;
    const QList<qreal> slopes = tangents(points);
    for (qsizetype i = 1; i < points.size(); ++i) {
        const QPointF from = points[i - 1];
        const QPointF to = points[i];
        const qreal third = (to.x() - from.x()) / 3;
        path.cubicTo(from + third * QPointF(1, slopes[i - 1]), to - third * QPointF(1, slopes[i]), to);
    }
    return path;
}

QPainterPath area(const QList<QPointF> &points, qreal baseline)
{
    if (points.size() < 2)
        return {};
    QPainterPath path = line(points);
    path.lineTo(points.last().x(), baseline);
    path.lineTo(points.first().x(), baseline);
    path.closeSubpath();
    return path;
}

} // namespace glimmet::PriceCurve
