#include "platform/desktop/Frames.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using enum RootWindow::Kind;
using Side = StackPlace::Side;

constexpr quint32 own = 99;
constexpr QRect screen(0, 0, 10, 10);

/// Windows from the lowest up, numbered from 1 on; the own one has no kind that counts.
QList<RootWindow> stack(std::initializer_list<std::optional<RootWindow::Kind>> kinds)
{
    QList<RootWindow> windows;
    for (const auto &kind : kinds)
        windows.append({ kind ? quint32(windows.size() + 1) : own, screen, kind.value_or(Other) });
    return windows;
}

constexpr std::nullopt_t itself = std::nullopt;

TEST(PlaceAmongFrames, isRightAboveTheHighestFrame)
{
    EXPECT_EQ(
        placeAmongFrames(stack({ itself, Bar, Frame, Frame }), own, screen), (StackPlace{ 4, Side::Above }));
    EXPECT_EQ(placeAmongFrames(stack({ Frame, itself, Bar }), own, screen), (StackPlace{ 3, Side::Above }));
}

TEST(PlaceAmongFrames, isBelowMenusAndLockersThatCameLater)
{
    EXPECT_EQ(placeAmongFrames(stack({ itself, Frame, Other }), own, screen), (StackPlace{ 2, Side::Above }));
}

TEST(PlaceAmongFrames, isKeptWhereItIsRightAlready)
{
    EXPECT_EQ(placeAmongFrames(stack({ Frame, Bar, itself, Other }), own, screen), std::nullopt);
    EXPECT_EQ(placeAmongFrames(stack({ Frame, itself, FullScreen, Frame }), own, screen), std::nullopt);
    EXPECT_EQ(placeAmongFrames(stack({ Other, itself }), own, screen), std::nullopt);
}

TEST(PlaceAmongFrames, isBelowTheLowestWindowThatFillsItsScreen)
{
    EXPECT_EQ(placeAmongFrames(stack({ Frame, FullScreen, Frame, FullScreen, itself }), own, screen),
        (StackPlace{ 2, Side::Below }));
    EXPECT_EQ(
        placeAmongFrames(stack({ itself, Frame, FullScreen }), own, screen), (StackPlace{ 3, Side::Below }));
}

TEST(PlaceAmongFrames, isBelowEveryFrameOfTheScreenWhoseBarIsCovered)
{
    EXPECT_EQ(placeAmongFrames(stack({ CoveredBar, Frame, Frame, itself }), own, screen),
        (StackPlace{ 2, Side::Below }));
    EXPECT_EQ(placeAmongFrames(stack({ CoveredBar, itself, Frame }), own, screen), std::nullopt);
}

TEST(PlaceAmongFrames, heedsNothingOfAnotherScreenBesideItOrBelow)
{
    for (const QPoint way : { QPoint(10, 0), QPoint(0, 10) }) {
        QList<RootWindow> windows = stack({ CoveredBar, FullScreen, Frame, itself, Frame, Frame });
        for (const qsizetype elsewhere : { 0, 1, 5 })
            windows[elsewhere].area.translate(way);

        EXPECT_EQ(placeAmongFrames(windows, own, screen), (StackPlace{ 5, Side::Above }));
    }
}

TEST(PlaceAmongFrames, isNowhereBeforeItsScreenIsKnown)
{
    EXPECT_EQ(placeAmongFrames(stack({ itself, Frame }), own, QRect()), std::nullopt);
}

TEST(Bars, areThereAlsoWhileTheyAreCovered)
{
    EXPECT_EQ(barsAmong(stack({ CoveredBar, Frame, Bar })).size(), 2);
}

} // namespace
} // namespace glimmet
