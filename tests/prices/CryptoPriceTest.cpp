#include "prices/CryptoPrice.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <cmath>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

QString priceText(double price)
{
    return CryptoPrice{ u"X"_s, price, 0, {} }.menuBarString();
}

QString changeText(double change)
{
    return CryptoPrice{ u"X"_s, 1, change, {} }.menuBarString().section(u' ', 2);
}

TEST(CryptoPrice, readsAsInTheMenuBar)
{
    EXPECT_EQ((CryptoPrice{ u"BTC-USD"_s, 97'012, 1.3, {} }).menuBarString(), u"BTC $97,012 (↑1.3%)"_s);
    EXPECT_EQ((CryptoPrice{ u"DOGE"_s, 0.1234, -4, {} }).menuBarString(), u"DOGE $0.1234 (↓4.0%)"_s);
}

TEST(CryptoPrice, roundsAChangeHalfwayBetweenTwoToTheEvenOne)
{
    EXPECT_EQ((CryptoPrice{ u"X"_s, 1, 0.25, {} }).menuBarString(), u"X $1.00 (↑0.2%)"_s);
    EXPECT_EQ((CryptoPrice{ u"X"_s, 1, -0.75, {} }).menuBarString(), u"X $1.00 (↓0.8%)"_s);
}

TEST(CryptoPrice, hasFourDecimalsBelowOneDollar)
{
    EXPECT_EQ(priceText(0.99999), u"X $1.0000 (↑0.0%)"_s);
    EXPECT_EQ(priceText(0.5), u"X $0.5000 (↑0.0%)"_s);
    EXPECT_EQ(priceText(0), u"X $0.0000 (↑0.0%)"_s);
    EXPECT_EQ(priceText(-37.5), u"X -$37.5000 (↑0.0%)"_s);
}

TEST(CryptoPrice, hasTwoDecimalsBelowOneHundredDollars)
{
    EXPECT_EQ(priceText(1), u"X $1.00 (↑0.0%)"_s);
    EXPECT_EQ(priceText(12.34), u"X $12.34 (↑0.0%)"_s);
    EXPECT_EQ(priceText(2.675), u"X $2.68 (↑0.0%)"_s);
    EXPECT_EQ(priceText(99.995), u"X $100.00 (↑0.0%)"_s);
}

TEST(CryptoPrice, hasNoDecimalsFromOneHundredDollars)
{
    EXPECT_EQ(priceText(100), u"X $100 (↑0.0%)"_s);
    EXPECT_EQ(priceText(100.5), u"X $100 (↑0.0%)"_s);
    EXPECT_EQ(priceText(101.5), u"X $102 (↑0.0%)"_s);
    EXPECT_EQ(priceText(1234567.89), u"X $1,234,568 (↑0.0%)"_s);
}

TEST(CryptoPrice, hasNoDecimalsForWhatIsNoNumber)
{
    EXPECT_EQ(priceText(std::nan("")), u"X $NaN (↑0.0%)"_s);
}

TEST(CryptoPrice, pointsUpUnlessItFell)
{
    EXPECT_EQ(changeText(0), u"(↑0.0%)"_s);
    EXPECT_EQ(changeText(25), u"(↑25.0%)"_s);
    EXPECT_EQ(changeText(-0.04), u"(↓0.0%)"_s);
    EXPECT_EQ(changeText(-0.06), u"(↓0.1%)"_s);
    EXPECT_EQ(changeText(12345.67), u"(↑12345.7%)"_s);
}

TEST(CryptoPrice, isCalledByTheFirstPieceOfItsSymbol)
{
    const auto shortName = [](const QString &id) { return CryptoPrice{ id, 1, 0, {} }.shortName(); };

    EXPECT_EQ(shortName(u"BTC-USD"_s), u"BTC"_s);
    EXPECT_EQ(shortName(u"AAPL"_s), u"AAPL"_s);
    EXPECT_EQ(shortName(u"BRK-B-X"_s), u"BRK"_s);
    EXPECT_EQ(shortName(u"-BTC"_s), u"BTC"_s);
    EXPECT_EQ(shortName(u"--"_s), u"--"_s);
    EXPECT_EQ(shortName(u""_s), u""_s);
}

} // namespace
} // namespace glimmet
