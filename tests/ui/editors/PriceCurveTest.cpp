#include "ui/editors/PriceCurve.h"

#include <QMap>
#include <QPair>

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace glimmet {

namespace {

using testing::ElementsAre;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double endless = std::numeric_limits<double>::infinity();
constexpr double greatest = std::numeric_limits<double>::max();
const QSizeF chart(300, 72);

QList<double> wave(int count)
{
    QList<double> prices;
    for (int i = 0; i < count; ++i)
        prices.append(100 + 10 * std::sin(i / 900.0) + (i * 7919 % 100) / 25.0);
    return prices;
}

bool isIn(const QRectF &area, const QPointF &point)
{
    return point.x() >= area.left() && point.x() <= area.right() && point.y() >= area.top()
        && point.y() <= area.bottom();
}

/// Whether no piece of the smooth line leaves the box of its two ends; its control points tell.
bool staysBetweenItsPoints(const QPainterPath &line)
{
    for (int i = 1; i < line.elementCount(); i += 3) {
        const QRectF box = QRectF(line.elementAt(i - 1), line.elementAt(i + 2)).normalized();
        const QRectF roomy = box.adjusted(-1e-9, -1e-9, 1e-9, 1e-9);
        if (!isIn(roomy, line.elementAt(i)) || !isIn(roomy, line.elementAt(i + 1)))
            return false;
    }
    return true;
}

/// Whether the line has one direction where two of its pieces meet.
bool isSmooth(const QPainterPath &line)
{
    for (int i = 3; i + 1 < line.elementCount(); i += 3) {
        const QPointF into = QPointF(line.elementAt(i)) - line.elementAt(i - 1);
        const QPointF outOf = QPointF(line.elementAt(i + 1)) - line.elementAt(i);
        if (std::abs(into.y() / into.x() - outOf.y() / outOf.x()) > 1e-6)
            return false;
    }
    return true;
}

QList<QPointF> throughPoints(const QPainterPath &line)
{
    QList<QPointF> points;
    for (int i = 0; i < line.elementCount(); i += 3)
        points.append(line.elementAt(i));
    return points;
}

/// The lowest and the highest point of each half pixel.
QMap<int, QPair<qreal, qreal>> envelope(const QList<QPointF> &points)
{
    QMap<int, QPair<qreal, qreal>> ends;
    for (const QPointF &point : points) {
        const int stretch = static_cast<int>(point.x() * 2);
        if (!ends.contains(stretch))
            ends.insert(stretch, { point.y(), point.y() });
        auto &[highest, lowest] = ends[stretch];
        highest = std::min(highest, point.y());
        lowest = std::max(lowest, point.y());
    }
    return ends;
}

} // namespace

TEST(PriceCurve, domainAddsATenthOfTheRangeAtBothEnds)
{
    EXPECT_EQ(PriceCurve::domain({ 150, 100, 200 }), (PriceCurve::Domain{ 90, 210 }));
    EXPECT_EQ(PriceCurve::domain({ -100, 100 }), (PriceCurve::Domain{ -120, 120 }));
}

TEST(PriceCurve, domainOfEqualPricesIsOneValue)
{
    EXPECT_EQ(PriceCurve::domain({ 0.1, 0.1, 0.1 }), (PriceCurve::Domain{ 0.1, 0.1 }));
    EXPECT_EQ(PriceCurve::domain({ 42 }), (PriceCurve::Domain{ 42, 42 }));
}

TEST(PriceCurve, domainOfNoPricesIsNothing)
{
    EXPECT_EQ(PriceCurve::domain({}), PriceCurve::Domain());
    EXPECT_EQ(PriceCurve::domain({ notANumber, endless }), PriceCurve::Domain());
}

TEST(PriceCurve, domainLeavesOutWhatIsNotFinite)
{
    EXPECT_EQ(
        PriceCurve::domain({ notANumber, 100, -endless, 200, endless }), (PriceCurve::Domain{ 90, 210 }));
}

TEST(PriceCurve, domainOfEnormousPricesIsFinite)
{
    const PriceCurve::Domain enormous = PriceCurve::domain({ -1e308, 1e308 });
    EXPECT_DOUBLE_EQ(enormous.lowest, -1.2e308);
    EXPECT_DOUBLE_EQ(enormous.highest, 1.2e308);

    EXPECT_EQ(PriceCurve::domain({ -greatest, greatest }), (PriceCurve::Domain{ -greatest, greatest }));
}

TEST(PriceCurve, pointsAreEvenlyApartOverTheWholeWidth)
{
    EXPECT_THAT(PriceCurve::points({ 100, 200, 150 }, { 100, 120 }),
        ElementsAre(QPointF(0, 110), QPointF(50, 10), QPointF(100, 60)));
}

TEST(PriceCurve, aSinglePointStandsInTheMiddle)
{
    EXPECT_THAT(PriceCurve::points({ 97012 }, chart), ElementsAre(QPointF(150, 36)));
}

TEST(PriceCurve, equalPricesStandHalfwayUp)
{
    EXPECT_THAT(PriceCurve::points({ 5, 5, 5 }, chart),
        ElementsAre(QPointF(0, 36), QPointF(150, 36), QPointF(300, 36)));
}

TEST(PriceCurve, noPricesHaveNoPoints)
{
    EXPECT_TRUE(PriceCurve::points({}, chart).isEmpty());
    EXPECT_TRUE(PriceCurve::points({ notANumber }, chart).isEmpty());
}

TEST(PriceCurve, whatIsNotFiniteTakesNoPlace)
{
    EXPECT_EQ(PriceCurve::points({ 100, notANumber, 200, endless, 150 }, chart),
        PriceCurve::points({ 100, 200, 150 }, chart));
}

TEST(PriceCurve, theCurveDoesNotTouchTheEdges)
{
    const QList<QList<double>> series{ { 1, 2 }, { 2, 1, 2 }, { -1e308, 1e308, 0 }, { 1e308, 1e308 },
        { 5e-324, 0, 5e-324 }, { 1e-300, 2e-300 }, wave(10000) };
    for (const QList<double> &prices : series) {
        for (const QPointF &point : PriceCurve::points(prices, chart)) {
            EXPECT_GT(point.y(), 5.9);
            EXPECT_LT(point.y(), 66.1);
        }
    }
}

TEST(PriceCurve, theGreatestRangeOfAllStaysInTheChart)
{
    EXPECT_THAT(PriceCurve::points({ -greatest, greatest, 0 }, chart),
        ElementsAre(QPointF(0, 72), QPointF(150, 0), QPointF(300, 36)));
}

TEST(PriceCurve, theLineGoesThroughEveryPoint)
{
    const QList<QPointF> points = PriceCurve::points({ 3, 1, 4, 1, 5, 9, 2, 6 }, chart);

    EXPECT_EQ(throughPoints(PriceCurve::line(points)), points);
}

TEST(PriceCurve, theLineIsSmoothAndGoesBeyondNoPrice)
{
    const QList<QList<double>> series{ { 1, 2, 3, 4 }, { 3, 1, 4, 1, 5, 9, 2, 6 }, { 0, 0, 0, 1000, 0, 0 },
        { 1, 1.001, 50, 50.001 }, { 5, 5, 5 }, wave(500) };
    for (const QList<double> &prices : series) {
        const QPainterPath line = PriceCurve::line(PriceCurve::points(prices, chart));
        EXPECT_TRUE(staysBetweenItsPoints(line));
        EXPECT_TRUE(isSmooth(line));
    }
}

TEST(PriceCurve, theLineIsNoChainOfStraightPieces)
{
    const QPainterPath line = PriceCurve::line({ { 0, 0 }, { 100, 50 }, { 200, 0 } });

    EXPECT_GT(line.pointAtPercent(0.25).y(), 25.5);
}

TEST(PriceCurve, twoPointsAreJoinedStraight)
{
    const QPainterPath line = PriceCurve::line({ { 0, 60 }, { 300, 12 } });

    EXPECT_EQ(line.pointAtPercent(0.5), QPointF(150, 36));
    EXPECT_TRUE(staysBetweenItsPoints(line));
}

TEST(PriceCurve, onePointAndNoneDrawNothing)
{
    EXPECT_TRUE(PriceCurve::line({}).isEmpty());
    EXPECT_TRUE(PriceCurve::line({ { 150, 36 } }).isEmpty());
    EXPECT_TRUE(PriceCurve::area({}, 72).isEmpty());
    EXPECT_TRUE(PriceCurve::area({ { 150, 36 } }, 72).isEmpty());
}

TEST(PriceCurve, theAreaIsWhatIsUnderTheSameLine)
{
    const QList<QPointF> points = PriceCurve::points({ 3, 1, 4, 1, 5 }, chart);
    const QPainterPath line = PriceCurve::line(points);
    const QPainterPath area = PriceCurve::area(points, 72);

    for (int i = 0; i < line.elementCount(); ++i)
        EXPECT_EQ(QPointF(area.elementAt(i)), QPointF(line.elementAt(i)));
    EXPECT_EQ(area.boundingRect().bottom(), 72);
    EXPECT_TRUE(area.contains(QPointF(150, 71)));
    EXPECT_TRUE(area.contains(points.at(2) + QPointF(0, 1)));
    EXPECT_FALSE(area.contains(points.at(2) - QPointF(0, 1)));
}

TEST(PriceCurve, whatPixelsCanShowIsNotThinned)
{
    const QList<QPointF> points = PriceCurve::points(wave(600), chart);

    EXPECT_EQ(PriceCurve::thinned(points), points);
    EXPECT_TRUE(PriceCurve::thinned({}).isEmpty());
    EXPECT_EQ(PriceCurve::thinned({ { 1, 1 }, { 1, 2 } }).size(), 2);
}

TEST(PriceCurve, tenThousandPointsBecomeAsManyAsPixelsCanShow)
{
    const QList<QPointF> points = PriceCurve::points(wave(10000), chart);

    const QList<QPointF> thinned = PriceCurve::thinned(points);

    EXPECT_LE(thinned.size(), 2 * 2 * 300 + 2);
    EXPECT_GT(thinned.size(), 300);
    EXPECT_EQ(thinned.first(), points.first());
    EXPECT_EQ(thinned.last(), points.last());
    EXPECT_EQ(envelope(thinned), envelope(points));
    EXPECT_TRUE(std::is_sorted(thinned.begin(), thinned.end(),
        [](const QPointF &one, const QPointF &other) { return one.x() < other.x(); }));
    EXPECT_TRUE(staysBetweenItsPoints(PriceCurve::line(thinned)));
}

} // namespace glimmet
