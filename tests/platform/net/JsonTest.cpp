#include "platform/net/Json.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QList>

#include <limits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::Optional;

/// What `look` finds in the value of a text that can be read.
template <typename Look> auto in(const QByteArray &text, Look look)
{
    const auto document = JsonDocument::read(text);
    EXPECT_TRUE(document) << text.toStdString();
    return document ? look(document->root()) : decltype(look(JsonValue()))();
}

std::optional<double> number(const QByteArray &json)
{
    return in(json, [](const JsonValue &value) { return value.number(); });
}

std::optional<qint64> integer(const QByteArray &json)
{
    return in(json, [](const JsonValue &value) { return value.integer(); });
}

std::optional<QString> text(const QByteArray &json)
{
    return in(json, [](const JsonValue &value) { return value.text(); });
}

TEST(JsonValue, isANumberInEveryNotation)
{
    EXPECT_EQ(number("12"), 12.0);
    EXPECT_EQ(number("12.0"), 12.0);
    EXPECT_EQ(number("-0.5"), -0.5);
    EXPECT_EQ(number("1e3"), 1000.0);
    EXPECT_EQ(number("1E-3"), 0.001);
    EXPECT_EQ(number("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(number("5e-324"), std::numeric_limits<double>::denorm_min());
}

TEST(JsonValue, isTheNumberNearestToItsText)
{
    EXPECT_EQ(number("0.1"), 0.1);
    EXPECT_EQ(number("97012.34765625"), 97012.34765625);
    EXPECT_EQ(number("9007199254740993.0"), 9007199254740992.0);
    EXPECT_EQ(number("9223372036854775807"), 9223372036854775808.0);
    EXPECT_EQ(number("9223372036854775808"), 9223372036854775808.0);
    EXPECT_EQ(number("18446744073709551615"), 18446744073709551616.0);
    EXPECT_EQ(number("1e-400"), 0.0);
}

TEST(JsonValue, isAnIntegerWithoutFractionAndExponentOnly)
{
    EXPECT_EQ(integer("12"), 12);
    EXPECT_EQ(integer("-0"), 0);
    EXPECT_EQ(integer("12.0"), std::nullopt);
    EXPECT_EQ(integer("1e3"), std::nullopt);
    EXPECT_EQ(integer("-0.0"), std::nullopt);
}

TEST(JsonValue, isAnIntegerOf64BitsWithASignOnly)
{
    EXPECT_EQ(integer("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(integer("-9223372036854775808"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(integer("9223372036854775808"), std::nullopt);
    EXPECT_EQ(integer("18446744073709551615"), std::nullopt);
}

TEST(JsonValue, isNoNumberWhereItIsOfAnotherType)
{
    for (const char *other : { "true", "false", "null", "\"12\"", "[12]", "{\"a\":12}" }) {
        EXPECT_EQ(number(other), std::nullopt) << other;
        EXPECT_EQ(integer(other), std::nullopt) << other;
    }
}

TEST(JsonValue, isABooleanOnlyAsTrueOrFalse)
{
    const auto boolean = [](const char *text) {
        return in(text, [](const JsonValue &value) { return value.boolean(); });
    };

    EXPECT_EQ(boolean("true"), true);
    EXPECT_EQ(boolean("false"), false);
    for (const char *other : { "1", "0", "null", "\"true\"", "[true]", "{}" })
        EXPECT_EQ(boolean(other), std::nullopt) << other;
}

TEST(JsonValue, isATextOnlyInQuotes)
{
    EXPECT_EQ(text("\"a\""), u"a"_s);
    EXPECT_EQ(text("\"\""), u""_s);
    for (const char *other : { "1", "null", "true", "[\"a\"]", "{\"a\":\"a\"}" })
        EXPECT_EQ(text(other), std::nullopt) << other;
}

TEST(JsonValue, isATextWithEveryCharacter)
{
    EXPECT_EQ(text(R"("\"\\\/\b\f\n\r\t")"), u"\"\\/\b\f\n\r\t"_s);
    EXPECT_EQ(text(R"("\u0041\u00e9\u20AC\ud83d\ude00")"), u"Aé€😀"_s);
    EXPECT_EQ(text("\"Aé€😀\""), u"Aé€😀"_s);
    EXPECT_EQ(text(R"("a\u0000b")"), u"a\0b"_s);
    EXPECT_EQ(text(R"("\ufeffa\uffff")"), u"\uFEFFa\uFFFF"_s);
}

TEST(JsonValue, tellsNullAndObjectsFromTheRest)
{
    const auto kinds = [](const char *text) {
        return in(text, [](const JsonValue &value) {
            return std::vector<bool>{ value.exists(), value.isNull(), value.isObject(),
                value.isEmptyObject() };
        });
    };

    EXPECT_THAT(kinds("null"), ElementsAre(true, true, false, false));
    EXPECT_THAT(kinds("{\"a\":null}"), ElementsAre(true, false, true, false));
    EXPECT_THAT(kinds("{}"), ElementsAre(true, false, true, true));
    EXPECT_THAT(kinds("[]"), ElementsAre(true, false, false, false));
    EXPECT_THAT(kinds("0"), ElementsAre(true, false, false, false));
}

TEST(JsonValue, isOfNoTypeWhereThereIsNone)
{
    const JsonValue none;

    EXPECT_FALSE(none.exists() || none.isNull() || none.isObject() || none.isEmptyObject());
    EXPECT_FALSE(none["a"].exists());
    EXPECT_FALSE(none.list() || none.listOfObjects() || none.number() || none.integer());
    EXPECT_FALSE(none.boolean() || none.text());
}

TEST(JsonValue, hasMembersOnlyAsAnObject)
{
    const auto document = JsonDocument::read(R"({"a":{"b":1},"l":[{"b":2}],"t":"b"})");
    const JsonValue root = document->root();

    EXPECT_EQ(root["a"]["b"].integer(), 1);
    EXPECT_FALSE(root["missing"]["b"].exists());
    EXPECT_FALSE(root["A"].exists());
    EXPECT_FALSE(root["l"]["b"].exists());
    EXPECT_FALSE(root["t"]["b"].exists());
}

TEST(JsonValue, hasTheLastOfSeveralMembersWithOneName)
{
    const auto document =
        JsonDocument::read(R"({"a":1,"b":{"c":1,"c":"x"},"a":[],"b":{"c":2,"c":null},"a":3})");
    const JsonValue root = document->root();

    EXPECT_EQ(root["a"].integer(), 3);
    EXPECT_TRUE(root["b"]["c"].isNull());
}

TEST(JsonValue, hasMembersWithAnyName)
{
    const auto document = JsonDocument::read(R"({"pr\u0069ce":1,"a\u0000b":2,"a":3,"":4,"é\ud83d\ude00":5})");
    const JsonValue root = document->root();

    EXPECT_EQ(root["price"].integer(), 1);
    EXPECT_EQ(root["a\0b"sv].integer(), 2);
    EXPECT_EQ(root["a"].integer(), 3);
    EXPECT_EQ(root[""].integer(), 4);
    EXPECT_EQ(root["é😀"].integer(), 5);
}

TEST(JsonList, givesItsElementsInOrder)
{
    const auto document = JsonDocument::read(R"([1,[2],"three",null])");
    const auto list = document->root().list();

    ASSERT_TRUE(list);
    EXPECT_EQ(list->first().integer(), 1);
    QList<std::optional<qint64>> integers;
    for (const JsonValue &value : *list)
        integers.append(value.integer());
    EXPECT_THAT(integers, ElementsAre(Optional(1), std::nullopt, std::nullopt, std::nullopt));
}

TEST(JsonList, hasNoFirstElementWhereItIsEmpty)
{
    const auto document = JsonDocument::read("[]");
    const auto list = document->root().list();

    ASSERT_TRUE(list);
    EXPECT_TRUE(list->isEmpty());
    EXPECT_FALSE(list->first().exists());
}

TEST(JsonList, isOneOfObjectsOnlyWhereEveryElementIsOne)
{
    const auto isListOfObjects = [](const char *text) {
        return in(text, [](const JsonValue &value) { return value.listOfObjects().has_value(); });
    };

    for (const char *good : { "[]", "[{}]", "[{\"a\":1},{}]" })
        EXPECT_TRUE(isListOfObjects(good)) << good;
    for (const char *bad : { "[1]", "[{},null]", "[[],{}]", "[{},{},\"\"]", "{}", "null", "\"[]\"" })
        EXPECT_FALSE(isListOfObjects(bad)) << bad;
}

} // namespace
} // namespace glimmet
