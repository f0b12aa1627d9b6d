#include "feed/StatusStream.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using Lines = std::vector<std::string>;

TEST(StatusStream, hasTheBlocksOfTheProtocolAsTheyAre)
{
    StatusStream stream;

    EXPECT_EQ(
        stream.take("{\"version\":1}\n[\n[{\"full_text\":\"a\"}]\n,["), Lines({ R"([{"full_text":"a"}])" }));
    EXPECT_EQ(stream.take("]\n"), Lines({ "[]" }));
    EXPECT_FALSE(stream.wantsClicks());
}

TEST(StatusStream, knowsWhoWantsClicks)
{
    StatusStream stream;

    stream.take("{\"version\":1,\"click_events\":true}\n[\n[]");

    EXPECT_TRUE(stream.wantsClicks());
}

TEST(StatusStream, makesABlockOfAPlainLine)
{
    StatusStream stream;

    EXPECT_EQ(stream.take("load 0.5 | \"12:"), Lines());
    EXPECT_EQ(stream.take("00\"\n\nnext"),
        Lines({ R"([{"full_text":"load 0.5 | \"12:00\""}])", R"([{"full_text":""}])" }));
    EXPECT_FALSE(stream.isBroken());
}

TEST(StatusStream, cutsALineWithoutEnd)
{
    StatusStream stream;
    stream.take(std::string(2 * ValueSplitter::longestValue, 'x'));

    const Lines lines = stream.take("y\n");

    ASSERT_EQ(lines.size(), 1);
    EXPECT_LT(lines.front().size(), ValueSplitter::longestValue + 100);
}

TEST(StatusStream, isBrokenByWhatIsNoProtocolAfterItsBeginning)
{
    StatusStream stream;

    stream.take("{}[oops");

    EXPECT_TRUE(stream.isBroken());
}

} // namespace
} // namespace glimmet
