#include "ui/controls/FlowLayoutEngine.h"

#include <QRandomGenerator>

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

namespace glimmet {

namespace {

using testing::ElementsAre;

constexpr FlowLayoutEngine engine{ 6 };

QList<QSizeF> chips(const QList<qreal> &widths, qreal height = 20)
{
    QList<QSizeF> sizes;
    for (const qreal width : widths)
        sizes.append({ width, height });
    return sizes;
}

struct FlowCase {
    const char *name;
    std::optional<qreal> width;
    QList<QSizeF> items;
    QList<qsizetype> rowLengths;
    QSizeF size;
    QList<QPointF> places; ///< within bounds that begin at (0, 0)
};

void PrintTo(const FlowCase &flow, std::ostream *stream)
{
    *stream << flow.name;
}

} // namespace

class FlowLayoutCases : public testing::TestWithParam<FlowCase> {};

TEST_P(FlowLayoutCases, rowsHoldTheirItemsInOrder)
{
    const FlowCase &flow = GetParam();

    QList<qsizetype> lengths;
    QList<QSizeF> inOrder;
    for (const FlowLayoutEngine::Row &row : engine.computeRows(flow.width, flow.items)) {
        lengths.append(row.size());
        inOrder.append(row);
    }

    EXPECT_EQ(lengths, flow.rowLengths);
    EXPECT_EQ(inOrder, flow.items);
}

TEST_P(FlowLayoutCases, sizeIsAsProposedAndAsHighAsTheRows)
{
    EXPECT_EQ(engine.sizeThatFits(GetParam().width, GetParam().items), GetParam().size);
}

TEST_P(FlowLayoutCases, itemsStandInTheirPlaces)
{
    EXPECT_EQ(engine.placeSubviews({}, GetParam().width, GetParam().items), GetParam().places);
}

TEST_P(FlowLayoutCases, placesFollowTheBounds)
{
    const QList<QPointF> places = engine.placeSubviews({ 20, 300, 1, 1 }, GetParam().width, GetParam().items);

    ASSERT_EQ(places.size(), GetParam().places.size());
    for (qsizetype i = 0; i < places.size(); ++i)
        EXPECT_EQ(places.at(i), GetParam().places.at(i) + QPointF(20, 300));
}

INSTANTIATE_TEST_SUITE_P(Table, FlowLayoutCases,
    testing::Values(FlowCase{ "no items", 100, {}, { 0 }, { 100, 0 }, {} },
        FlowCase{ "no items and no width", std::nullopt, {}, { 0 }, { 0, 0 }, {} },
        FlowCase{ "one item", 100, chips({ 40 }), { 1 }, { 100, 20 }, { { 0, 0 } } },
        FlowCase{ "no width: one row", std::nullopt, chips({ 4000, 4000, 4000 }), { 3 }, { 0, 20 },
            { { 0, 0 }, { 4006, 0 }, { 8012, 0 } } },
        FlowCase{ "everything fits with its last spacing", 98, chips({ 40, 46 }), { 2 }, { 98, 20 },
            { { 0, 0 }, { 46, 0 } } },
        FlowCase{ "only the last spacing does not fit", 97, chips({ 40, 46 }), { 1, 1 }, { 97, 46 },
            { { 0, 0 }, { 0, 26 } } },
        FlowCase{ "the room left is exactly the next width", 92, chips({ 40, 46 }), { 1, 1 }, { 92, 46 },
            { { 0, 0 }, { 0, 26 } } },
        FlowCase{
            "as wide as the width", 40, chips({ 40, 40 }), { 1, 1 }, { 40, 46 }, { { 0, 0 }, { 0, 26 } } },
        FlowCase{ "wider than the width, first", 100, chips({ 300, 40 }), { 1, 1 }, { 100, 46 },
            { { 0, 0 }, { 0, 26 } } },
        FlowCase{ "wider than the width, between others", 100, chips({ 40, 300, 40 }), { 1, 1, 1 },
            { 100, 72 }, { { 0, 0 }, { 0, 26 }, { 0, 52 } } },
        FlowCase{ "a width of nothing", 0, chips({ 40, 40 }), { 1, 1 }, { 0, 46 }, { { 0, 0 }, { 0, 26 } } },
        FlowCase{ "different heights", 100, { { 40, 20 }, { 40, 32 }, { 40, 10 } }, { 2, 1 }, { 100, 48 },
            { { 0, 0 }, { 46, 0 }, { 0, 38 } } },
        FlowCase{ "the tallest one stands first", 100, { { 40, 32 }, { 40, 20 } }, { 2 }, { 100, 32 },
            { { 0, 0 }, { 46, 0 } } },
        FlowCase{ "three rows", 100, chips({ 60, 60, 28, 20, 60 }), { 1, 2, 2 }, { 100, 72 },
            { { 0, 0 }, { 0, 26 }, { 66, 26 }, { 0, 52 }, { 26, 52 } } }));

TEST(FlowLayoutEngine, withoutSpacingItemsTouch)
{
    const FlowLayoutEngine tight{ 0 };

    EXPECT_THAT(tight.placeSubviews({}, 80, chips({ 40, 40, 40 })),
        ElementsAre(QPointF(0, 0), QPointF(40, 0), QPointF(0, 20)));
    EXPECT_EQ(tight.sizeThatFits(80, chips({ 40, 40, 40 })), QSizeF(80, 40));
}

TEST(FlowLayoutEngine, aHeightIsNeverNegative)
{
    EXPECT_EQ(engine.sizeThatFits(100, {}).height(), 0);
    EXPECT_EQ(engine.sizeThatFits(100, { QSizeF(40, 0) }).height(), 0);

    const FlowLayoutEngine overlapping{ -30 };
    EXPECT_EQ(overlapping.sizeThatFits(5, chips({ 40, 40 })).height(), 10);
    EXPECT_EQ(overlapping.sizeThatFits(5, chips({ 40, 40, 40, 40 })).height(), 0);
}

TEST(FlowLayoutEngine, anEndlessWidthIsReportedAsProposed)
{
    const qreal endless = std::numeric_limits<qreal>::infinity();

    const QSizeF size = engine.sizeThatFits(endless, chips({ 40, 40 }));

    EXPECT_EQ(size.width(), endless);
    EXPECT_EQ(size.height(), 20);
}

TEST(FlowLayoutEngine, noTwoItemsOverlapAndNoneLeavesTheWidth)
{
    QRandomGenerator random(1);
    QList<QSizeF> items;
    for (int i = 0; i < 500; ++i)
        items.append({ 20.0 + random.bounded(200), 10.0 + random.bounded(20) });

    const QList<QPointF> places = engine.placeSubviews({}, 300, items);

    ASSERT_EQ(places.size(), 500);
    const qreal height = engine.sizeThatFits(300, items).height();
    for (qsizetype i = 0; i < 500; ++i) {
        const QRectF area(places.at(i), items.at(i));
        EXPECT_TRUE(QRectF(0, 0, 300, height).contains(area)) << i;
        for (qsizetype other = std::max<qsizetype>(i - 20, 0); other < i; ++other)
            EXPECT_FALSE(area.intersects({ places.at(other), items.at(other) })) << i << " and " << other;
    }
}

} // namespace glimmet
