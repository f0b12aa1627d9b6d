#include "app/LayerBackdrop.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

constexpr QRect output(1280, 0, 1280, 800);

TEST(LayerBackdrop, dropsThePanelFromTheInnerEdgeOfTheBarUnderThePointer)
{
    EXPECT_EQ(besideBar({ 1500, 12 }, output, { 1280, 770 }), QPoint(1500, 30));
    EXPECT_EQ(besideBar({ 1500, 0 }, output, { 1280, 770 }), QPoint(1500, 30));
    EXPECT_EQ(besideBar({ 1500, 790 }, output, { 1280, 770 }), QPoint(1500, 770));
    EXPECT_EQ(besideBar({ 1500, 770 }, output, { 1280, 770 }), QPoint(1500, 770));
}

TEST(LayerBackdrop, dropsThePanelFromThePointerElsewhere)
{
    EXPECT_EQ(besideBar({ 1500, 30 }, output, { 1280, 770 }), QPoint(1500, 30));
    EXPECT_EQ(besideBar({ 1500, 400 }, output, { 1280, 770 }), QPoint(1500, 400));
    EXPECT_EQ(besideBar({ 1500, 0 }, output, { 1280, 800 }), QPoint(1500, 0));
}

TEST(LayerBackdrop, takesNoBarForHigherThanBarsAre)
{
    EXPECT_EQ(besideBar({ 1500, 100 }, output, { 1280, 400 }), QPoint(1500, 100));
    EXPECT_EQ(besideBar({ 1500, 63 }, output, { 1280, 400 }), QPoint(1500, 64));
}

TEST(LayerBackdrop, takesAnOutputWhoseFreeSpaceIsNotToldForFree)
{
    EXPECT_EQ(besideBar({ 1500, 12 }, output, {}), QPoint(1500, 12));
}

} // namespace
} // namespace glimmet
