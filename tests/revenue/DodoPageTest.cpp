#include "revenue/DodoService.h"

#include "tests/revenue/JsonText.h"
#include "tests/revenue/PageFigures.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

std::optional<RevenuePage> page(const QByteArray &json)
{
    return inJson(json, [](const JsonValue &answer) { return DodoService::parsePage(answer, u"EUR"_s); });
}

/// The page of one payment that counts, with further members, which come last and so win.
std::optional<RevenuePage> pageWithPayment(const QByteArray &members)
{
    return page(R"({"items":[{"payment_id":"pay_1","status":"succeeded","currency":"EUR","total_amount":700,)"
                R"("created_at":"2026-11-18T09:14:07.482913Z",)"
        + members + "}]}");
}

TEST(DodoPage, holdsThePaymentsThatSucceededInTheCurrency)
{
    const auto read = page(R"({"items":[
        {"status":"succeeded","currency":"EUR","total_amount":1,"created_at":"2026-11-18T09:14:07Z"},
        {"status":"failed","currency":"EUR","total_amount":2,"created_at":"2026-11-18T09:14:07Z"},
        {"status":null,"currency":"EUR","total_amount":4,"created_at":"2026-11-18T09:14:07Z"},
        {"status":"succeeded","currency":"USD","total_amount":8,"created_at":"2026-11-18T09:14:07Z"},
        {"status":"succeeded","currency":"eur","total_amount":16,"created_at":"2026-11-18T09:14:08Z"},
        {"status":"succeeded","currency":"Eur","total_amount":32}
        ],"next_cursor":null})");

    ASSERT_TRUE(read);
    EXPECT_EQ(amountsIn(*read), (QList<qint64>{ 1, 16, 32 }));
    EXPECT_EQ(timesIn(*read), (QList<double>{ 1794993247, 1794993248, noTime }));
    EXPECT_EQ(read->nextCursor, std::nullopt);
}

TEST(DodoPage, isAnObjectWithAListOfObjects)
{
    EXPECT_TRUE(page(R"({"items":[]})"));
    for (const QByteArray &value : jsonValuesBut({ "[]", "[{}]" }))
        EXPECT_FALSE(page("{\"items\":" + value + '}')) << value.toStdString();
    for (const char *answer : { "{}", "[]", "null", "{\"data\":[]}", "{\"items\":[{},null]}" })
        EXPECT_FALSE(page(answer)) << answer;
}

TEST(DodoPage, hasNoPaymentWithAnyOtherStatus)
{
    for (const QByteArray &value : jsonValues + QList<QByteArray>{ "\"Succeeded\"", "\"processing\"" })
        EXPECT_EQ(amountsIn(*pageWithPayment("\"status\":" + value)), QList<qint64>()) << value.toStdString();
}

TEST(DodoPage, hasNoPaymentInAnyOtherCurrency)
{
    for (const QByteArray &value :
        jsonValues + QList<QByteArray>{ "\" EUR\"", "\"EUR \"", "\"USD\"", "\"EU\"", "978" })
        EXPECT_EQ(amountsIn(*pageWithPayment("\"currency\":" + value)), QList<qint64>())
            << value.toStdString();
    EXPECT_EQ(amountsIn(*page(R"({"items":[{"status":"succeeded","total_amount":1}]})")), QList<qint64>());
}

TEST(DodoPage, takesAnAmountThatIsNoNumberForNothing)
{
    for (const QByteArray &value : jsonValuesBut({ "0", "12", "-12", "12.0", "12.9", "1e2" }))
        EXPECT_EQ(amountsIn(*pageWithPayment("\"total_amount\":" + value)), QList<qint64>{ 0 })
            << value.toStdString();
    EXPECT_EQ(amountsIn(*pageWithPayment("\"total_amount\":-12.9")), QList<qint64>{ -12 });
    EXPECT_EQ(amountsIn(*page(R"({"items":[{"status":"succeeded","currency":"EUR"}]})")), QList<qint64>{ 0 });
}

TEST(DodoPage, takesATimeThatCannotBeReadForNone)
{
    for (const QByteArray &value : jsonValues + QList<QByteArray>{ "\"yesterday\"", "1795000000" })
        EXPECT_EQ(timesIn(*pageWithPayment("\"created_at\":" + value)), QList<double>{ noTime })
            << value.toStdString();
}

TEST(DodoPage, isContinuedWhereItsCursorIsAText)
{
    EXPECT_EQ(page(R"({"items":[],"next_cursor":"pay_9"})")->nextCursor, u"pay_9"_s);
    EXPECT_EQ(page(R"({"items":[],"next_cursor":""})")->nextCursor, u""_s);
}

TEST(DodoPage, isTheLastOneWhereItIsNot)
{
    for (const QByteArray &value : jsonValuesBut({ "\"\"", "\"text\"", "\"12\"" }))
        EXPECT_EQ(page("{\"items\":[],\"next_cursor\":" + value + '}')->nextCursor, std::nullopt)
            << value.toStdString();
    EXPECT_EQ(page(R"({"items":[{"payment_id":"pay_1"}]})")->nextCursor, std::nullopt);
}

} // namespace
} // namespace glimmet
