#include "platform/Rotation.h"

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

TEST(Rotation, movesAfterItsIntervalAndCountsAnew)
{
    Rotation rotation;

    EXPECT_FALSE(rotation.tick(3));
    EXPECT_FALSE(rotation.tick(3));
    EXPECT_TRUE(rotation.tick(3));
    EXPECT_FALSE(rotation.tick(3));
}

TEST(Rotation, movesWithEachTickWhereTheIntervalIsNone)
{
    Rotation rotation;

    EXPECT_TRUE(rotation.tick(0));
    EXPECT_TRUE(rotation.tick(-5));
}

TEST(Rotation, aShorterIntervalCountsFromTheLastMove)
{
    Rotation rotation;
    for (int i = 0; i < 5; ++i)
        rotation.tick(30);

    EXPECT_TRUE(rotation.tick(6));
}

TEST(Rotation, goesRoundAndStaysWhereThereIsNoOther)
{
    Rotation rotation;
    EXPECT_EQ(rotation.next(2), 1);
    rotation.setIndex(1);
    EXPECT_EQ(rotation.next(2), 0);
    EXPECT_EQ(rotation.next(1), 1);
    EXPECT_EQ(rotation.next(0), 1);
}

TEST(Rotation, showsAnEntryWhateverItsIndexIs)
{
    Rotation rotation;
    rotation.setIndex(7);
    EXPECT_EQ(rotation.among(3), 1);
    rotation.setIndex(-1);
    EXPECT_EQ(rotation.among(3), 2);
    rotation.setIndex(std::numeric_limits<qint64>::min());
    EXPECT_EQ(rotation.among(2), 0);
}

} // namespace
} // namespace glimmet
