#include "revenue/StripeService.h"

#include "tests/revenue/JsonText.h"
#include "tests/revenue/PageFigures.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

std::optional<RevenuePage> page(const QByteArray &json)
{
    return inJson(json, [](const JsonValue &answer) { return StripeService::parsePage(answer, u"usd"_s); });
}

/// The page of one charge that counts, with further members, which come last and so win.
std::optional<RevenuePage> pageWithCharge(const QByteArray &members)
{
    return page(R"({"data":[{"id":"ch_1","amount":700,"currency":"usd","status":"succeeded",)"
                R"("created":1795000000)"
        + (members.isEmpty() ? members : ',' + members) + "}]}");
}

std::optional<QString> cursor(const QByteArray &json)
{
    return page(json)->nextCursor;
}

TEST(StripePage, holdsTheChargesThatSucceededInTheCurrency)
{
    const auto read = page(R"({"object":"list","data":[
        {"id":"ch_1","amount":1,"currency":"usd","status":"succeeded","created":1795000000},
        {"id":"ch_2","amount":2,"currency":"usd","status":"pending","created":1795000000},
        {"id":"ch_3","amount":4,"currency":"usd","status":"failed","created":1795000000},
        {"id":"ch_4","amount":8,"currency":"eur","status":"succeeded","created":1795000000},
        {"id":"ch_5","amount":16,"currency":"usd","status":"succeeded","created":1795000001,"refunded":true}
        ],"has_more":false,"url":"/v1/charges"})");

    ASSERT_TRUE(read);
    EXPECT_EQ(amountsIn(*read), (QList<qint64>{ 1, 16 }));
    EXPECT_EQ(timesIn(*read), (QList<double>{ 1795000000, 1795000001 }));
    EXPECT_EQ(read->nextCursor, std::nullopt);
}

TEST(StripePage, isAnObjectWithAListOfObjects)
{
    EXPECT_TRUE(page(R"({"data":[]})"));
    for (const QByteArray &value : jsonValuesBut({ "[]", "[{}]" }))
        EXPECT_FALSE(page("{\"data\":" + value + '}')) << value.toStdString();
    for (const char *list : { "[null]", "[{},null]", "[[],{}]", "[{},\"ch_1\"]" })
        EXPECT_FALSE(page(QByteArray("{\"data\":") + list + '}')) << list;
    for (const char *answer : { "{}", "[]", "null", "{\"Data\":[]}", "[{\"data\":[]}]" })
        EXPECT_FALSE(page(answer)) << answer;
}

TEST(StripePage, hasNoChargeWithAnyOtherStatus)
{
    for (const QByteArray &value : jsonValues + QList<QByteArray>{ "\"Succeeded\"", "\"succeeded \"" })
        EXPECT_EQ(amountsIn(*pageWithCharge("\"status\":" + value)), QList<qint64>()) << value.toStdString();
    EXPECT_EQ(amountsIn(*page(R"({"data":[{"amount":1,"currency":"usd"}]})")), QList<qint64>());
}

TEST(StripePage, hasNoChargeInAnyOtherCurrency)
{
    for (const QByteArray &value :
        jsonValues + QList<QByteArray>{ "\"USD\"", "\"Usd\"", "\" usd\"", "\"eur\"", "\"u\\u0073d \"" })
        EXPECT_EQ(amountsIn(*pageWithCharge("\"currency\":" + value)), QList<qint64>())
            << value.toStdString();
    EXPECT_EQ(amountsIn(*page(R"({"data":[{"amount":1,"status":"succeeded"}]})")), QList<qint64>());
    EXPECT_EQ(amountsIn(*pageWithCharge(R"("currency":"u\u0073d")")), QList<qint64>{ 700 });
}

TEST(StripePage, takesAnAmountThatIsNoNumberForNothing)
{
    for (const QByteArray &value : jsonValuesBut({ "0", "12", "-12", "12.0", "12.9", "1e2" }))
        EXPECT_EQ(amountsIn(*pageWithCharge("\"amount\":" + value)), QList<qint64>{ 0 })
            << value.toStdString();
    EXPECT_EQ(amountsIn(*pageWithCharge("\"amount\":12.9")), QList<qint64>{ 12 });
    EXPECT_EQ(amountsIn(*pageWithCharge("\"amount\":-12.9")), QList<qint64>{ -12 });
    EXPECT_EQ(amountsIn(*page(R"({"data":[{"currency":"usd","status":"succeeded"}]})")), QList<qint64>{ 0 });
}

TEST(StripePage, takesATimeThatIsNoIntegerForNone)
{
    for (const QByteArray &value :
        jsonValuesBut({ "0", "12", "-12" }) + QList<QByteArray>{ "1795000000.0", "9223372036854775808" })
        EXPECT_EQ(timesIn(*pageWithCharge("\"created\":" + value)), QList<double>{ noTime })
            << value.toStdString();
    EXPECT_EQ(timesIn(*pageWithCharge("\"created\":-12")), QList<double>{ -12 });
    EXPECT_EQ(
        timesIn(*page(R"({"data":[{"currency":"usd","status":"succeeded"}]})")), QList<double>{ noTime });
}

TEST(StripePage, isContinuedBehindItsLastCharge)
{
    EXPECT_EQ(cursor(R"({"data":[{"id":"ch_1"},{"id":"ch_2"}],"has_more":true})"), u"ch_2"_s);
    EXPECT_EQ(cursor(R"({"has_more":true,"data":[{"id":"ch_1","status":"failed"}]})"), u"ch_1"_s);
    EXPECT_EQ(cursor(R"({"data":[{"id":""}],"has_more":true})"), u""_s);
}

TEST(StripePage, isTheLastOneWithoutACharge)
{
    EXPECT_EQ(cursor(R"({"data":[],"has_more":true})"), std::nullopt);
}

TEST(StripePage, isTheLastOneWhereTheLastChargeHasNoName)
{
    for (const QByteArray &value : jsonValuesBut({ "\"\"", "\"text\"", "\"12\"" }))
        EXPECT_EQ(cursor(R"({"data":[{"id":"ch_1"},{"id":)" + value + R"(}],"has_more":true})"), std::nullopt)
            << value.toStdString();
    EXPECT_EQ(cursor(R"({"data":[{"id":"ch_1"},{}],"has_more":true})"), std::nullopt);
}

TEST(StripePage, isTheLastOneUnlessItSaysThereAreMore)
{
    for (const QByteArray &value : jsonValuesBut({ "true" }) + QList<QByteArray>{ "1", "\"true\"" })
        EXPECT_EQ(cursor(R"({"data":[{"id":"ch_1"}],"has_more":)" + value + '}'), std::nullopt)
            << value.toStdString();
    EXPECT_EQ(cursor(R"({"data":[{"id":"ch_1"}]})"), std::nullopt);
}

TEST(StripePage, takesTheLastOfMembersWithOneName)
{
    EXPECT_EQ(amountsIn(*pageWithCharge("\"amount\":1,\"amount\":2")), QList<qint64>{ 2 });
    EXPECT_EQ(
        amountsIn(*pageWithCharge("\"status\":\"failed\",\"status\":\"succeeded\"")), QList<qint64>{ 700 });
    EXPECT_FALSE(page(R"({"data":[],"data":null})"));
}

} // namespace
} // namespace glimmet
