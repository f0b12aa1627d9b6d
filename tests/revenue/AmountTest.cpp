#include "revenue/Amount.h"

#include "tests/revenue/JsonText.h"

#include <gtest/gtest.h>

#include <limits>

namespace glimmet {
namespace {

Amount amount(const QByteArray &json)
{
    return inJson(json, [](const JsonValue &value) { return Amount(value); });
}

qint64 cents(const QByteArray &json)
{
    return amount(json).truncated();
}

TEST(Amount, isAnIntegerToTheLastCent)
{
    EXPECT_EQ(cents("0"), 0);
    EXPECT_EQ(cents("123456"), 123456);
    EXPECT_EQ(cents("-500"), -500);
    EXPECT_EQ(cents("9007199254740993"), 9007199254740993);
    EXPECT_EQ(cents("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(cents("-9223372036854775808"), std::numeric_limits<qint64>::min());
}

TEST(Amount, isCutTowardZero)
{
    EXPECT_EQ(cents("12.9"), 12);
    EXPECT_EQ(cents("-12.9"), -12);
    EXPECT_EQ(cents("0.999"), 0);
    EXPECT_EQ(cents("-0.999"), 0);
    EXPECT_EQ(cents("1e2"), 100);
    EXPECT_EQ(cents("-0.0"), 0);
    EXPECT_EQ(cents("1e-400"), 0);
    EXPECT_EQ(cents("9223372036854774784.0"), 9223372036854774784);
    EXPECT_EQ(cents("-9223372036854775808.0"), std::numeric_limits<qint64>::min());
}

TEST(Amount, isZeroWhereThereIsNoNumber)
{
    for (const QByteArray &value : jsonValuesBut({ "0", "12", "-12", "12.0", "12.9", "1e2" }))
        EXPECT_EQ(cents(value), 0) << value.toStdString();
    EXPECT_EQ(Amount(JsonValue()).truncated(), 0);
    EXPECT_EQ(Amount().truncated(), 0);
}

TEST(AmountDeathTest, endsTheProcessWhereOneThatDoesNotFitIsCounted)
{
    for (const char *number : { "9223372036854775808", "18446744073709551615", "9223372036854775808.0",
             "-9223372036854777856.0", "1e19", "-1e300", "1.7976931348623157e308" }) {
        const Amount huge = amount(number);

        EXPECT_DEATH(huge.truncated(), "^\\[glimmet\\] fatal: a number is too large for an integer\n$")
            << number;
    }
}

} // namespace
} // namespace glimmet
