#include "ui/panel/Contrast.h"

#include <gtest/gtest.h>

namespace glimmet {

TEST(Contrast, reachesFromOneToTwentyOne)
{
    EXPECT_NEAR(contrast(Qt::white, Qt::white), 1, 0.01);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
}

TEST(Contrast, isTheSameEitherWayRound)
{
    const QColor gray(0x77, 0x77, 0x77);

    EXPECT_NEAR(contrast(gray, Qt::white), 4.48, 0.005);
    EXPECT_NEAR(contrast(Qt::white, gray), 4.48, 0.005);
}

TEST(Contrast, ofWhatIsSeeThroughIsThatOfTheMixture)
{
    const QColor half = atOpacity(Qt::black, 0.5);

    EXPECT_NEAR(laidOver(half, Qt::white).redF(), 0.5, 0.001);
    EXPECT_EQ(laidOver(atOpacity(Qt::red, 0), Qt::white).rgb(), QColor(Qt::white).rgb());
    EXPECT_EQ(laidOver(Qt::red, Qt::white).rgb(), QColor(Qt::red).rgb());
}

TEST(Contrast, anOpacityThatIsEnoughIsKept)
{
    EXPECT_DOUBLE_EQ(opacityReaching(4.5, 0.8, Qt::black, Qt::white), 0.8);
}

TEST(Contrast, anOpacityThatIsNotIsRaisedNoFurtherThanItMust)
{
    const double opacity = opacityReaching(4.5, 0.3, Qt::black, Qt::white);

    const auto reached = [](double tried) {
        return contrast(laidOver(atOpacity(Qt::black, tried), Qt::white), Qt::white);
    };
    EXPECT_GE(reached(opacity), 4.5);
    EXPECT_LT(reached(opacity - 1.0 / 255), 4.5);
}

TEST(Contrast, whatReachesItAtNoOpacityIsOpaque)
{
    EXPECT_DOUBLE_EQ(opacityReaching(4.5, 0.3, Qt::yellow, Qt::white), 1);
}

} // namespace glimmet
