#include "platform/net/Json.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

bool isReadable(QByteArrayView text)
{
    return JsonDocument::read(text).has_value();
}

std::optional<qint64> integer(QByteArrayView text)
{
    const auto document = JsonDocument::read(text);
    return document ? document->root().integer() : std::nullopt;
}

/// Lists within lists, with `innermost` in the deepest.
QByteArray nestedLists(int levels, const QByteArray &innermost = {})
{
    return QByteArray(levels, '[') + innermost + QByteArray(levels, ']');
}

QByteArray nestedObjects(int levels, const QByteArray &innermost)
{
    return "{\"a\":"_ba.repeated(levels) + innermost + QByteArray(levels, '}');
}

void expectFiveHundredAndTwelveLevels()
{
    EXPECT_TRUE(isReadable(nestedLists(512)));
    EXPECT_TRUE(isReadable(nestedLists(512, "1")));
    EXPECT_TRUE(isReadable(nestedObjects(511, "{}")));
    EXPECT_TRUE(isReadable(nestedObjects(512, "\"x\"")));
    EXPECT_TRUE(isReadable(nestedObjects(256, nestedLists(256, "null"))));
    EXPECT_FALSE(isReadable(nestedLists(513)));
    EXPECT_FALSE(isReadable(nestedLists(513, "1")));
    EXPECT_FALSE(isReadable(nestedObjects(512, "{}")));
    EXPECT_FALSE(isReadable(nestedObjects(513, "\"x\"")));
    EXPECT_FALSE(isReadable(nestedObjects(256, nestedLists(257, "null"))));
}

TEST(JsonDocument, isAnyValueWithBlanksAround)
{
    EXPECT_EQ(integer("7"), 7);
    EXPECT_EQ(integer(" \t\r\n7 \t\r\n"), 7);
    for (const char *text : { "null", "true", "\"\"", "{}", "[]", "-1.5e+3" })
        EXPECT_TRUE(isReadable(text)) << text;
}

TEST(JsonDocument, mayBeginWithOneByteOrderMark)
{
    EXPECT_EQ(integer("\xEF\xBB\xBF 7"), 7);
    EXPECT_FALSE(isReadable("\xEF\xBB\xBF\xEF\xBB\xBF 7"));
    EXPECT_FALSE(isReadable("7\xEF\xBB\xBF"));
    EXPECT_FALSE(isReadable(" \xEF\xBB\xBF 7"));
    EXPECT_FALSE(isReadable("\xEF\xBB 7"));
}

TEST(JsonDocument, needsAValue)
{
    EXPECT_FALSE(isReadable({}));
    EXPECT_FALSE(isReadable(""));
    EXPECT_FALSE(isReadable(" \t\r\n"));
    EXPECT_FALSE(isReadable("\xEF\xBB\xBF"));
    EXPECT_FALSE(isReadable("\xEF\xBB\xBF "));
}

TEST(JsonDocument, endsWithItsValue)
{
    for (const char *text :
        { "7 8", "7,", "{}}", "[]x", "{}{}", "\"a\"b", "null1", "truefalse", "7//", "7 ;" })
        EXPECT_FALSE(isReadable(text)) << text;
    EXPECT_FALSE(isReadable("[7]\0"_ba));
    EXPECT_FALSE(isReadable("\0"_ba));
}

TEST(JsonDocument, isReadUpToItsEndOnly)
{
    const QByteArrayView longer = "1234";

    EXPECT_EQ(integer(longer.first(2)), 12);
    EXPECT_FALSE(isReadable(QByteArrayView("[1]").first(2)));
}

TEST(JsonDocument, isWholeOrNothing)
{
    const QByteArray text = R"({"a":[1.5,-2,"t\u0065\n",true,false,null],"b":{"c":"é"}})";
    ASSERT_TRUE(isReadable(text));

    for (qsizetype size = 0; size < text.size(); ++size)
        EXPECT_FALSE(isReadable(text.first(size))) << size;
}

TEST(JsonDocument, keepsToTheGrammar)
{
    for (const char *text : { "[1,]", "[,1]", "[1 2]", "{\"a\":1,}", "{\"a\"}", "{\"a\" 1}", "{a:1}", "{1:1}",
             "{'a':1}", "[}", "{]", "[1}", "(1)", "// c\n1", "/* c */1", "True", "nul", "undefined" })
        EXPECT_FALSE(isReadable(text)) << text;
}

TEST(JsonDocument, writesNumbersInDecimalDigitsOnly)
{
    for (const char *text : { "NaN", "nan", "Infinity", "-Infinity", "inf", "[NaN]", "{\"a\":-Infinity}",
             "+1", ".5", "1.", "01", "-01", "-", "1e", "1e+", "0x10", "1_000", "1,5", "--1", "1.2.3" })
        EXPECT_FALSE(isReadable(text)) << text;
}

TEST(JsonDocument, hasNoNumberThatFitsNowhere)
{
    for (const char *number : { "1e400", "-1e400", "1e309", "123456789012345678901234567890",
             "18446744073709551616", "-9223372036854775809" }) {
        EXPECT_FALSE(isReadable(number)) << number;
        EXPECT_FALSE(isReadable("{\"a\":1,\"unused\":[" + QByteArray(number) + "]}")) << number;
    }
}

TEST(JsonDocument, isWrittenInUtf8)
{
    for (const char *text : { "\"\xFF\"", "\"\x80\"", "\"\xC3\"", "\"\xC0\xAF\"", "\"\xE2\x82\"",
             "\"\xED\xA0\x80\"", "\"\xF4\x90\x80\x80\"", "\"\xF0\x9F\x98\"", "{\"\xFF\":1}", "[\xC2\xA0 1]" })
        EXPECT_FALSE(isReadable(text)) << QByteArray(text).toPercentEncoding().toStdString();
    EXPECT_FALSE(isReadable("\xFF\xFE\x37\x00"_ba));
}

TEST(JsonDocument, pairsItsSurrogates)
{
    for (const char *text : { R"("\ud800")", R"("\udc00")", R"("\ud83dx")", R"("\ud83d\n")",
             R"("\ud83d\u0041")", R"("\ud83d\ud83d")", R"("\ude00\ud83d")", R"("\ude00\ude00")",
             R"({"\ud83d":1})", R"(["\udbff"])" })
        EXPECT_FALSE(isReadable(text)) << text;
    EXPECT_TRUE(isReadable(R"("\ud83d\ude00")"));
}

TEST(JsonDocument, escapesWhatCannotStandInAText)
{
    for (const char *text : { "\"\n\"", "\"\t\"", "\"\x01\"", R"("\x41")", R"("\u12")", R"("\u12g4")",
             R"("\U0041")", R"("\")", "\"" })
        EXPECT_FALSE(isReadable(text)) << text;
    EXPECT_FALSE(isReadable("\"\0\""_ba));
}

TEST(JsonDocument, hasAtMostFiveHundredAndTwelveLevels)
{
    expectFiveHundredAndTwelveLevels();
}

TEST(JsonDocument, hasAsManyLevelsAfterALongerOne)
{
    for (const qsizetype bytes : { 5'000, 100'000, 3'000'000 }) {
        ASSERT_TRUE(isReadable('[' + "0,"_ba.repeated(bytes / 2) + "7]"));

        expectFiveHundredAndTwelveLevels();
    }
}

TEST(JsonDocument, hasAsManyLevelsWhereItIsLong)
{
    for (const qsizetype bytes : { 5'000, 100'000, 3'000'000 }) {
        const QByteArray wide = '[' + "0,"_ba.repeated(bytes / 2);

        EXPECT_TRUE(isReadable(wide + nestedLists(511, "1") + ']')) << bytes;
        EXPECT_FALSE(isReadable(wide + nestedLists(512, "1") + ']')) << bytes;
        EXPECT_FALSE(isReadable(wide + nestedLists(512) + ']')) << bytes;
    }
}

TEST(JsonDocument, countsNoBracketsInTextsAsLevels)
{
    EXPECT_TRUE(isReadable('"' + QByteArray(5'000, '[') + '"'));
    EXPECT_TRUE(isReadable("{\"\\\"" + QByteArray(5'000, '{') + "\":" + nestedLists(511, "\"[\"") + '}'));
    EXPECT_TRUE(isReadable('[' + "[],{},"_ba.repeated(5'000) + "7]"));
}

} // namespace
} // namespace glimmet
