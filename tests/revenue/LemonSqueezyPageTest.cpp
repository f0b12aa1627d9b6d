#include "revenue/LemonSqueezyService.h"

#include "tests/revenue/JsonText.h"
#include "tests/revenue/PageFigures.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

std::optional<RevenuePage> page(const QByteArray &json, qint64 number = 1)
{
    return inJson(
        json, [number](const JsonValue &answer) { return LemonSqueezyService::parsePage(answer, number); });
}

/// The page of one order that counts, with further attributes, which come last and so win.
std::optional<RevenuePage> pageWithOrder(const QByteArray &attributes)
{
    return page(R"({"data":[{"type":"orders","id":"1","attributes":{"status":"paid","total":700,)"
                R"("created_at":"2026-11-18T09:14:07.000000Z",)"
        + attributes + "}}]}");
}

bool hasNext(const QByteArray &links)
{
    return page("{\"data\":[],\"links\":" + links + '}')->nextCursor.has_value();
}

TEST(LemonSqueezyPage, holdsThePaidOrders)
{
    const auto read = page(R"({"data":[
        {"attributes":{"status":"paid","total":1,"created_at":"2026-11-18T09:14:07.000000Z"}},
        {"attributes":{"status":"refunded","total":2,"created_at":"2026-11-18T09:14:07.000000Z"}},
        {"attributes":{"status":"pending","total":4}},
        {"attributes":{"status":"failed","total":8}},
        {"attributes":{"status":"partial_refund","total":16}},
        {"attributes":{"status":"paid","total":32,"currency":"EUR","created_at":"2026-11-18T10:14:08+01:00"}}
        ]})");

    ASSERT_TRUE(read);
    EXPECT_EQ(amountsIn(*read), (QList<qint64>{ 1, 32 }));
    EXPECT_EQ(timesIn(*read), (QList<double>{ 1794993247, 1794993248 }));
    EXPECT_EQ(read->nextCursor, std::nullopt);
}

TEST(LemonSqueezyPage, isAnObjectWithAListOfObjects)
{
    EXPECT_TRUE(page(R"({"data":[]})"));
    for (const QByteArray &value : jsonValuesBut({ "[]", "[{}]" }))
        EXPECT_FALSE(page("{\"data\":" + value + '}')) << value.toStdString();
    for (const char *answer : { "{}", "[]", "null", "[{\"data\":[]}]", "{\"data\":[{},null]}" })
        EXPECT_FALSE(page(answer)) << answer;
}

TEST(LemonSqueezyPage, hasNoOrderWithoutAttributes)
{
    for (const QByteArray &value : jsonValues)
        EXPECT_EQ(amountsIn(*page("{\"data\":[{\"attributes\":" + value + "}]}")), QList<qint64>())
            << value.toStdString();
    EXPECT_EQ(amountsIn(*page(R"({"data":[{"status":"paid","total":1}]})")), QList<qint64>());
}

TEST(LemonSqueezyPage, hasNoOrderWithAnyOtherStatus)
{
    for (const QByteArray &value : jsonValues + QList<QByteArray>{ "\"Paid\"", "\"paid \"" })
        EXPECT_EQ(amountsIn(*pageWithOrder("\"status\":" + value)), QList<qint64>()) << value.toStdString();
}

TEST(LemonSqueezyPage, takesATotalThatIsNoNumberForNothing)
{
    for (const QByteArray &value : jsonValuesBut({ "0", "12", "-12", "12.0", "12.9", "1e2" }))
        EXPECT_EQ(amountsIn(*pageWithOrder("\"total\":" + value)), QList<qint64>{ 0 }) << value.toStdString();
    EXPECT_EQ(amountsIn(*pageWithOrder("\"total\":12.9")), QList<qint64>{ 12 });
    EXPECT_EQ(amountsIn(*page(R"({"data":[{"attributes":{"status":"paid"}}]})")), QList<qint64>{ 0 });
}

TEST(LemonSqueezyPage, takesATimeThatCannotBeReadForNone)
{
    for (const QByteArray &value :
        jsonValues + QList<QByteArray>{ "\"2024-05-01 10:20:30\"", "\"2024-05-01\"", "1795000000" })
        EXPECT_EQ(timesIn(*pageWithOrder("\"created_at\":" + value)), QList<double>{ noTime })
            << value.toStdString();
}

TEST(LemonSqueezyPage, isContinuedWhereItLinksToTheNext)
{
    EXPECT_TRUE(hasNext(R"({"next":"https://api.lemonsqueezy.com/v1/orders?page%5Bnumber%5D=2"})"));
    EXPECT_TRUE(hasNext(R"({"next":""})"));
}

TEST(LemonSqueezyPage, isTheLastOneWhereItDoesNot)
{
    for (const QByteArray &value : jsonValuesBut({ "\"\"", "\"text\"", "\"12\"" }))
        EXPECT_FALSE(hasNext("{\"next\":" + value + '}')) << value.toStdString();
    for (const QByteArray &value : jsonValues)
        EXPECT_FALSE(hasNext(value)) << value.toStdString();
    EXPECT_EQ(page(R"({"data":[],"next":"x"})")->nextCursor, std::nullopt);
}

TEST(LemonSqueezyPage, isFollowedByTheNextNumber)
{
    const QByteArray json = R"({"data":[],"links":{"next":"x"}})";

    EXPECT_EQ(page(json, 1)->nextCursor, u"2"_s);
    EXPECT_EQ(page(json, 999)->nextCursor, u"1000"_s);
}

TEST(LemonSqueezyPageDeathTest, endsTheProcessWhereTheNextNumberDoesNotFit)
{
    EXPECT_DEATH(page(R"({"data":[],"links":{"next":"x"}})", std::numeric_limits<qint64>::max()),
        "^\\[glimmet\\] fatal: integer overflow\n$");
}

} // namespace
} // namespace glimmet
