#include "platform/CurrencyText.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

struct Example {
    QString currency;
    QString text;
};

class CurrencyTable : public testing::TestWithParam<Example> {};

TEST_P(CurrencyTable, readsAsInAmericanEnglish)
{
    EXPECT_EQ(currencyText(1234.56, GetParam().currency, 2), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Codes, CurrencyTable,
    testing::Values(Example{ u"USD"_s, u"$1,234.56"_s }, Example{ u"EUR"_s, u"€1,234.56"_s },
        Example{ u"GBP"_s, u"£1,234.56"_s }, Example{ u"CAD"_s, u"CA$1,234.56"_s },
        Example{ u"AUD"_s, u"A$1,234.56"_s }, Example{ u"JPY"_s, u"¥1,234.56"_s },
        Example{ u"INR"_s, u"₹1,234.56"_s }, Example{ u"BRL"_s, u"R$1,234.56"_s },
        Example{ u"CHF"_s, u"CHF\u00A01,234.56"_s }, Example{ u"BTC"_s, u"BTC\u00A01,234.56"_s },
        Example{ u"USDX"_s, u"$1,234.56"_s }, Example{ u"usd"_s, u"$1,234.56"_s },
        Example{ u"eur"_s, u"€1,234.56"_s }));

TEST(CurrencyText, isNothingForWhatIsNoCode)
{
    for (const QString &currency : { QString(), u""_s, u"U"_s, u"US"_s, u"u$d"_s, u"€€€"_s, u"💰💰"_s })
        EXPECT_EQ(currencyText(1, currency, 2), std::nullopt) << currency.toStdString();
}

TEST(CurrencyText, putsTheSignBeforeTheSymbol)
{
    EXPECT_EQ(currencyText(-0.05, u"USD"_s, 2), u"-$0.05"_s);
    EXPECT_EQ(currencyText(-1234.5, u"CHF"_s, 2), u"-CHF\u00A01,234.50"_s);
}

TEST(CurrencyText, roundsHalvesOfTheShortestDecimalFormToEven)
{
    EXPECT_EQ(currencyText(2.675, u"USD"_s, 2), u"$2.68"_s); // printf gives 2.67.
    EXPECT_EQ(currencyText(1.005, u"USD"_s, 2), u"$1.00"_s);
    EXPECT_EQ(currencyText(1.015, u"USD"_s, 2), u"$1.02"_s);
    EXPECT_EQ(currencyText(0.125, u"USD"_s, 2), u"$0.12"_s);
    EXPECT_EQ(currencyText(0.375, u"USD"_s, 2), u"$0.38"_s);
    EXPECT_EQ(currencyText(0.5, u"USD"_s, 0), u"$0"_s);
    EXPECT_EQ(currencyText(1.5, u"USD"_s, 0), u"$2"_s);
    EXPECT_EQ(currencyText(0.00005, u"USD"_s, 4), u"$0.0000"_s);
    EXPECT_EQ(currencyText(0.00015, u"USD"_s, 4), u"$0.0002"_s);
}

TEST(CurrencyText, hasExactlyTheDigitsAskedFor)
{
    EXPECT_EQ(currencyText(1, u"JPY"_s, 2), u"¥1.00"_s);
    EXPECT_EQ(currencyText(1, u"USD"_s, 4), u"$1.0000"_s);
    EXPECT_EQ(currencyText(99.995, u"USD"_s, 2), u"$100.00"_s);
    EXPECT_EQ(currencyText(12345678.9, u"USD"_s, 2), u"$12,345,678.90"_s);
}

TEST(CurrencyText, doesNotFollowTheUsersLocale)
{
    qputenv("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(currencyText(1234.56, u"EUR"_s, 2), u"€1,234.56"_s);
    qunsetenv("LC_ALL");
}

} // namespace
} // namespace glimmet
