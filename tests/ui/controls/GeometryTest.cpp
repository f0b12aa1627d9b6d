#include "ui/controls/Geometry.h"

#include <gtest/gtest.h>

namespace glimmet {

namespace {

/// Its contents stand out of it, as a long text does of its field.
class OverfullItem : public QQuickItem {
public:
    using QQuickItem::QQuickItem;
    QRectF boundingRect() const override { return { -200, -200, 1000, 1000 }; }
};

} // namespace

TEST(Geometry, aTextThatFitsKeepsItsSize)
{
    EXPECT_DOUBLE_EQ(Geometry::fittingScale(100, 230), 1);
    EXPECT_DOUBLE_EQ(Geometry::fittingScale(230, 230), 1);
}

TEST(Geometry, anEmptyTextKeepsItsSize)
{
    EXPECT_DOUBLE_EQ(Geometry::fittingScale(0, 230), 1);
}

TEST(Geometry, aLongTextShrinksUntilItFits)
{
    EXPECT_DOUBLE_EQ(Geometry::fittingScale(460, 230), 0.5);
}

TEST(Geometry, noTextShrinksBelowFortyPercent)
{
    EXPECT_DOUBLE_EQ(Geometry::fittingScale(575, 230), 0.4);
    EXPECT_DOUBLE_EQ(Geometry::fittingScale(5000, 230), 0.4);
}

TEST(Geometry, whatIsVisibleDoesNotScroll)
{
    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(40, 80, 30, 100), 30);
}

TEST(Geometry, whatIsBelowComesUpToTheBottom)
{
    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(140, 180, 30, 100), 80);
}

TEST(Geometry, whatIsAboveComesDownToTheTop)
{
    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(10, 50, 30, 100), 10);
}

TEST(Geometry, whatIsHigherThanTheViewShowsItsTop)
{
    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(140, 400, 30, 100), 140);
}

TEST(Geometry, anItemElsewhereDoesNotScroll)
{
    QQuickItem content;
    QQuickItem elsewhere;

    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(&elsewhere, &content, 30, 100), 30);
    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(nullptr, &content, 30, 100), 30);
}

TEST(Geometry, anItemIsRevealedWithRoomForItsFocusRingAndClearOfTheSoftEdge)
{
    QQuickItem content;
    content.setSize({ 340, 400 });
    QQuickItem item(&content);
    item.setPosition({ 20, 200 });
    item.setSize({ 100, 40 });

    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(&item, &content, 0, 100), 260 - 100);
}

TEST(Geometry, anItemIsRevealedInItsOwnSizeWhateverStandsOutOfIt)
{
    QQuickItem content;
    content.setSize({ 340, 400 });
    OverfullItem item(&content);
    item.setPosition({ 20, 200 });
    item.setSize({ 100, 40 });

    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(&item, &content, 0, 100), 260 - 100);
}

TEST(Geometry, theLastItemScrollsToTheEndAndNoFurther)
{
    QQuickItem content;
    content.setSize({ 340, 400 });
    QQuickItem item(&content);
    item.setPosition({ 20, 358 });
    item.setSize({ 100, 40 });

    EXPECT_DOUBLE_EQ(Geometry::offsetRevealing(&item, &content, 0, 100), 300);
}

TEST(Geometry, anItemIsPartOfTheWholeThatAsksToBeRevealed)
{
    QQuickItem whole;
    whole.setProperty("revealedWhole", true);
    QQuickItem row(&whole);
    QQuickItem item(&row);
    QQuickItem elsewhere;

    EXPECT_EQ(Geometry::wholeAround(&item), &whole);
    EXPECT_EQ(Geometry::wholeAround(&whole), &whole);
    EXPECT_EQ(Geometry::wholeAround(&elsewhere), nullptr);
    EXPECT_EQ(Geometry::wholeAround(nullptr), nullptr);
}

TEST(Geometry, aRoundedRegionLeavesOnlyItsCornersOut)
{
    const QRegion region = Geometry::roundedRegion({ 340, 540 }, 14);

    EXPECT_FALSE(region.contains(QPoint(0, 0)));
    EXPECT_FALSE(region.contains(QPoint(339, 0)));
    EXPECT_FALSE(region.contains(QPoint(0, 539)));
    EXPECT_FALSE(region.contains(QPoint(339, 539)));
    EXPECT_FALSE(region.contains(QPoint(3, 3)));
    EXPECT_TRUE(region.contains(QPoint(5, 5)));
    EXPECT_TRUE(region.contains(QPoint(14, 0)));
    EXPECT_TRUE(region.contains(QPoint(0, 14)));
    EXPECT_TRUE(region.contains(QPoint(339, 525)));
    EXPECT_TRUE(region.contains(QPoint(325, 539)));
}

TEST(Geometry, aRoundedRegionTakesInEachRowThePixelsNextToTheCurve)
{
    const QRegion region = Geometry::roundedRegion({ 595, 945 }, 24.5);
    const auto inset = [&region](int row) {
        return region.intersected(QRect(0, row, 595, 1)).boundingRect().left();
    };

    EXPECT_EQ(region.boundingRect(), QRect(0, 0, 595, 945));
    EXPECT_EQ(inset(0), 20); // 24.5 less the root of 24.5² - 24²
    EXPECT_EQ(inset(1), 16);
    EXPECT_EQ(inset(2), 14);
    EXPECT_EQ(inset(10), 4);
    EXPECT_EQ(inset(24), 0);
    EXPECT_EQ(inset(944), 20);
}

TEST(Geometry, aRegionLowerThanItsCornersIsRoundAsFarAsItGoes)
{
    EXPECT_EQ(Geometry::roundedRegion({ 100, 4 }, 14).boundingRect().height(), 4);
    EXPECT_TRUE(Geometry::roundedRegion({}, 14).isEmpty());
}

} // namespace glimmet
