#include "app/ScreenSpace.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

ScreenSpace screen(QRect geometry, double scale = 1, int topBar = 27)
{
    return { geometry, geometry.adjusted(0, topBar, 0, 0), scale };
}

TEST(ScreenSpace, turnsNativePositionsIntoLogicalOnesFromTheScreensOrigin)
{
    const ScreenSpace right = screen({ 2560, 0, 1280, 800 }, 2);

    EXPECT_EQ(right.toLogical({ 2560 + 200, 50 }), QPoint(2560 + 100, 25));
    EXPECT_EQ(right.toNative({ 2570, 10, 340, 540 }), QRect(2580, 20, 680, 1080));
    EXPECT_EQ(right.nativeGeometry(), QRect(2560, 0, 2560, 1600));
}

TEST(ScreenSpace, holdsFractionalScalesWithinAPixel)
{
    const ScreenSpace space = screen({ 0, 0, 1024, 640 }, 1.25);

    for (int x = 0; x < 1280; ++x) {
        const int back = space.toNative({ space.toLogical({ x, 0 }), QSize() }).left();
        ASSERT_LE(std::abs(back - x), 1) << x;
    }
}

TEST(ScreenSpace, takesTheRoomInTheUnitsOfTheWindowManager)
{
    // A screen of 1280 by 800 pixels at scale 2, of which a bar of 40 logical pixels takes the lower edge, as
    // it comes from a window manager that tells of 640 by 360.
    const ScreenSpace told{ { 0, 0, 640, 400 }, { 0, 0, 320, 180 }, 2 };
    EXPECT_EQ(withRoomInUnitsOf(told, { 640, 400 }, { 1280, 800 }).available, QRect(0, 0, 640, 360));

    const ScreenSpace plain{ { 0, 0, 1280, 800 }, { 0, 27, 1280, 773 }, 1 };
    EXPECT_EQ(withRoomInUnitsOf(plain, { 1280, 800 }, { 1280, 800 }).available, plain.available);
    const ScreenSpace second{ { 1280, 0, 640, 400 }, { 1280, 0, 640, 400 }, 2 };
    EXPECT_EQ(withRoomInUnitsOf(second, { 1280, 400 }, { 2560, 800 }).available, second.geometry);
}

TEST(ScreenSpace, leavesOutTheBarsAtItsUpperAndLowerEdge)
{
    const ScreenSpace plain{ { 1280, 0, 1280, 800 }, { 1280, 0, 1280, 800 }, 1 };

    EXPECT_EQ(withoutBars(plain, { { 1280, 0, 1280, 20 }, { 1280, 776, 1280, 24 } }).available,
        QRect(1280, 20, 1280, 756));
    EXPECT_EQ(withoutBars(plain, { { 0, 0, 1280, 20 } }).available, plain.available) << "of another screen";
    EXPECT_EQ(withoutBars(plain, { { 1280, 0, 40, 800 } }).available, plain.available) << "at its side";
}

TEST(ScreenSpace, leavesOutBarsInItsOwnScale)
{
    const ScreenSpace twice{ { 0, 0, 1280, 800 }, { 0, 0, 1280, 800 }, 2 };

    EXPECT_EQ(withoutBars(twice, { { 0, 0, 2560, 40 } }).available, QRect(0, 20, 1280, 780));
}

TEST(ScreenSpace, findsTheScreenOfANativePosition)
{
    const QList<ScreenSpace> screens{ screen({ 0, 0, 1280, 800 }, 2), screen({ 2560, 0, 1920, 1080 }) };

    EXPECT_EQ(screenAt(screens, { 2500, 1500 }).geometry, screens.at(0).geometry);
    EXPECT_EQ(screenAt(screens, { 2600, 10 }).geometry, screens.at(1).geometry);
}

TEST(ScreenSpace, takesTheFirstScreenForAPositionOnNone)
{
    const QList<ScreenSpace> screens{ screen({ 0, 0, 1280, 800 }), screen({ 1280, 0, 1920, 1080 }) };

    EXPECT_EQ(screenAt(screens, { -50, 5000 }).geometry, screens.first().geometry);
}

} // namespace
} // namespace glimmet
