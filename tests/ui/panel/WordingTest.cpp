#include "ui/panel/Wording.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {

TEST(Wording, versionIsAnnouncedWithAVAndADot)
{
    EXPECT_EQ(Wording::version(QStringLiteral("1.2")), QStringLiteral("v1.2 ·"));
}

TEST(Wording, anUnknownVersionLeavesTheVAndTheDot)
{
    EXPECT_EQ(Wording::version(QString()), QStringLiteral("v ·"));
}

TEST(Wording, defaultsAreCounted)
{
    EXPECT_EQ(Wording::usingDefaults(10), QStringLiteral("Using defaults (10)"));
}

TEST(Wording, pricesAreExplainedWithTheirInterval)
{
    EXPECT_EQ(Wording::pricesHelp(10),
        QStringLiteral("Works for crypto (BTC, ETH) and stocks (AAPL, TSLA). Price refreshes every 10s."));
}

TEST(Wording, aChartIsCalledAfterItsPrice)
{
    EXPECT_EQ(Wording::priceChart(QStringLiteral("BTC")), QStringLiteral("BTC price chart"));
}

TEST(Wording, removingNamesWhatGoes)
{
    EXPECT_EQ(Wording::removing(QStringLiteral("stay curious ✦")), QStringLiteral("Remove stay curious ✦"));
}

TEST(Wording, aPercentSignInAQuoteStaysAsItIs)
{
    EXPECT_EQ(Wording::removing(QStringLiteral("100 %1 yours")), QStringLiteral("Remove 100 %1 yours"));
}

TEST(Wording, whatIsKnownIsSaidToBeThere)
{
    EXPECT_EQ(
        Wording::known(QStringLiteral("100 %1 yours")), QStringLiteral("100 %1 yours is there already"));
}

TEST(Wording, whatIsEmptyMakesNoSentence)
{
    EXPECT_EQ(Wording::sentences({ QStringLiteral("one"), QString(), QStringLiteral("two") }),
        QStringLiteral("one. two"));
    EXPECT_EQ(Wording::sentences({}), QString());
}

TEST(Wording, deadlinesToComeAreCounted)
{
    EXPECT_EQ(Wording::active(0), QStringLiteral("0 active"));
    EXPECT_EQ(Wording::active(3), QStringLiteral("3 active"));
}

TEST(Wording, aLongListIsToldByItsCountAndAnEntryByItsPlace)
{
    EXPECT_EQ(Wording::entries(1000), QStringLiteral("1000 entries"));
    EXPECT_EQ(Wording::position(3, 1000), QStringLiteral("3 of 1000"));
}

TEST(Wording, anErrorStandsOnOneLineWithItsTime)
{
    const QString time = QStringLiteral("14:32");

    EXPECT_EQ(Wording::problem(QStringLiteral("⚠ the request timed out"), time),
        QStringLiteral("⚠ the request timed out · 14:32"));
    EXPECT_FALSE(Wording::problem(QStringLiteral("⚠ a\nb"), time).contains(u'\n'));
}

TEST(Wording, aStaleTextHasAReason)
{
    EXPECT_EQ(Wording::staleness(QStringLiteral("⚠ http 500")), QStringLiteral("The last refresh failed"));
    EXPECT_EQ(Wording::staleness(QStringLiteral("💰 $5.00")), QStringLiteral("No refresh succeeded lately"));
}

} // namespace glimmet
