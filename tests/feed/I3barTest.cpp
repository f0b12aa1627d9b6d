#include "feed/I3bar.h"

#include <simdjson.h>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

/// How many status lines a parser finds in all that was printed; -1 where it reads none.
int statusLines(const std::string &printed)
{
    simdjson::dom::parser parser;
    simdjson::dom::array lines;
    const std::string array = printed.substr(printed.find('\n') + 1) + ']';
    return parser.parse(array).get(lines) ? -1 : int(lines.size());
}

TEST(I3bar, isToldToReportClicks)
{
    EXPECT_TRUE(wantsClicks(i3barOpening().substr(0, i3barOpening().find('\n'))));
}

TEST(I3bar, canReadWhatIsPrintedFromItsBeginningOn)
{
    std::string printed = i3barOpening();
    EXPECT_EQ(statusLines(printed), 1);

    for (const FeedText &text : { FeedText(), FeedText("12:00:00"), FeedText("a \"b\" \\ \t") })
        for (const char *others : { "", "[]", "[ ]", R"([{"full_text":"load"}])" })
            printed += '\n' + i3barLine(text, others);

    EXPECT_EQ(statusLines(printed), 13);
}

TEST(I3bar, showsTheTextAlone)
{
    EXPECT_EQ(i3barLine("12:00", ""), R"(,[{"name":"glimmet","full_text":"12:00"}])");
    EXPECT_EQ(i3barLine(std::nullopt, ""), ",[]");
}

TEST(I3bar, showsTheTextBeforeOtherBlocksAndLeavesThoseAsTheyAre)
{
    const std::string others = R"([{"name":"load", "full_text" : "0.5"},{"full_text":"x"}])";

    EXPECT_EQ(i3barLine("12:00", others),
        R"(,[{"name":"glimmet","full_text":"12:00"},{"name":"load", "full_text" : "0.5"},{"full_text":"x"}])");
    EXPECT_EQ(i3barLine(std::nullopt, others), ',' + others);
}

TEST(I3bar, tellsOfClicksOnTheText)
{
    EXPECT_TRUE(isClickOnText(R"({"name":"glimmet","button":1,"modifiers":[],"x":1200})"));
    EXPECT_TRUE(isClickOnText(R"({"button":3,"name":"glimmet"})"));
}

TEST(I3bar, tellsOfNothingElse)
{
    for (const char *click : { R"({"name":"glimmet","button":4})", R"({"name":"glimmet","button":0})",
             R"({"name":"glimmet"})", R"({"name":"load","button":1})", R"({"button":1})", "{", "[1]", "" })
        EXPECT_FALSE(isClickOnText(click)) << click;
}

TEST(I3bar, passesClicksOnToProgramsThatWantThem)
{
    EXPECT_TRUE(wantsClicks(R"({"version":1, "click_events": true})"));
    for (const char *header :
        { R"({"version":1})", R"({"click_events":false})", R"({"click_events":1})", "{" })
        EXPECT_FALSE(wantsClicks(header)) << header;
}

} // namespace
} // namespace glimmet
