#include "ui/controls/TargetMask.h"

#include <gtest/gtest.h>

namespace glimmet {

TEST(TargetMask, leavesWhatIsLargeEnoughAsItIs)
{
    EXPECT_EQ(TargetMask::areaOf({ 80, 24 }), QRectF(0, 0, 80, 24));
}

TEST(TargetMask, growsWhatIsSmallAroundItsMiddle)
{
    EXPECT_EQ(TargetMask::areaOf({ 80, 12 }), QRectF(0, -6, 80, 24));
    EXPECT_EQ(TargetMask::areaOf({ 21, 30 }), QRectF(-1.5, 0, 24, 30));
}

TEST(TargetMask, holdsNothingWithoutATarget)
{
    const TargetMask mask;

    EXPECT_FALSE(mask.contains({ 0, 0 }));
}

} // namespace glimmet
