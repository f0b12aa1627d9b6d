#include "feed/Formats.h"

#include <simdjson.h>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::string_literals;

/// What a parser reads of a member.
std::string member(const std::string &json, const char *name)
{
    simdjson::dom::parser parser;
    std::string_view text;
    if (parser.parse(json)[name].get(text))
        return "no such text";
    return std::string(text);
}

TEST(Formats, leaveAPlainTextAsItIs)
{
    EXPECT_EQ(plainLine("₿ 42 < 43 & “more” \\ ⏳"), "₿ 42 < 43 & “more” \\ ⏳");
}

TEST(Formats, keepATextOnItsLine)
{
    EXPECT_EQ(plainLine("one\ntwo\tthree\x1b[31m"), "one two three [31m");
    EXPECT_EQ(markupText("one\ntwo"), "one two");
    EXPECT_EQ(waybarLine("one\ntwo").find('\n'), std::string::npos);
    EXPECT_EQ(genmonLine("one\ntwo").find('\n'), std::string::npos);
}

TEST(Formats, haveAnEmptyLineForNoText)
{
    EXPECT_EQ(plainLine(std::nullopt), "");
}

TEST(Formats, writeEveryCharacterSoThatAParserReadsItBack)
{
    std::string all;
    for (char letter = 1; letter < 0x7f; ++letter)
        all += letter;
    all += "\x7f ⚠ 😀 \u2028"s;

    EXPECT_EQ(member(R"({"text":)" + jsonString(all) + '}', "text"), all);
    EXPECT_EQ(jsonString("a\"b\\c\nd"), R"("a\"b\\c\u000ad")");
}

TEST(Formats, keepMarkupFromBeingReadAsSuch)
{
    EXPECT_EQ(markupText("<b>R&D</b> > \"0\""), "&lt;b&gt;R&amp;D&lt;/b&gt; &gt; \"0\"");
}

TEST(Formats, tellWaybarTextTooltipAndState)
{
    const std::string line = waybarLine("R&D \"now\"");

    EXPECT_EQ(member(line, "text"), "R&amp;D \"now\"");
    EXPECT_EQ(member(line, "tooltip"), "R&amp;D \"now\"");
    EXPECT_EQ(member(line, "class"), "running");
}

TEST(Formats, tellWaybarOfAnErrorByTheClass)
{
    EXPECT_EQ(member(waybarLine("⚠ add api key"), "class"), "warning");
}

TEST(Formats, hideWaybarsModuleWhereThereIsNoText)
{
    EXPECT_EQ(member(waybarLine(std::nullopt), "text"), "");
    EXPECT_EQ(member(waybarLine(std::nullopt), "class"), "absent");
}

TEST(Formats, keepPolybarFromReadingTags)
{
    EXPECT_EQ(polybarLine("50%{A1:reboot:}%%{F-} {}%"), "50%\u2060{A1:reboot:}%%\u2060{F-} {}%");
    EXPECT_EQ(polybarLine(std::nullopt), "");
}

TEST(Formats, keepTmuxFromReadingFormats)
{
    EXPECT_EQ(tmuxLine("C# #{pid} 5#"), "C#### ####{pid} 5####");
    EXPECT_EQ(tmuxLine("##"), "########");
    EXPECT_EQ(tmuxLine("#[fg=red]##["), "##[fg=red]####[");
    EXPECT_EQ(tmuxLine("[12:00]"), "[12:00]");
    EXPECT_EQ(tmuxLine(std::nullopt), "");
}

TEST(Formats, tellTheGenericMonitorTextTooltipAndClick)
{
    EXPECT_EQ(genmonLine("1 < 2"),
        "<txt>1 &lt; 2</txt><tool>1 &lt; 2</tool><txtclick>glimmet-feed --activate</txtclick>");
}

} // namespace
} // namespace glimmet
