#include "ui/editors/RevenueLabels.h"
#include "revenue/RevenueChoices.h"
#include "tests/support/Printing.h"

#include <QFile>

#include <gmock/gmock.h>

namespace glimmet {

namespace {

/// What `text` says of each of the choices.
QStringList texts(const QList<int> &choices, QString (*text)(int))
{
    QStringList found;
    for (const int choice : choices)
        found.append(text(choice));
    return found;
}

} // namespace

TEST(RevenueLabels, providersStandInTheirOrder)
{
    EXPECT_THAT(texts(RevenueLabels::providers(), RevenueLabels::providerLabel),
        testing::ElementsAre(u"Polar", u"RevenueCat", u"Dodo", u"Stripe", u"Lemon Squeezy"));
    EXPECT_THAT(texts(RevenueLabels::providers(), RevenueLabels::providerSymbol),
        testing::ElementsAre(
            u"bolt.circle", u"chart.bar.fill", u"creditcard", u"s.circle.fill", u"l.circle.fill"));
}

TEST(RevenueLabels, metricsStandInTheirOrder)
{
    EXPECT_THAT(texts(RevenueLabels::metrics(), RevenueLabels::metricLabel),
        testing::ElementsAre(u"Revenue", u"Orders", u"Avg", u"Top"));
    EXPECT_THAT(texts(RevenueLabels::metrics(), RevenueLabels::metricSymbol),
        testing::ElementsAre(u"dollarsign", u"bag", u"chart.bar", u"crown"));
}

TEST(RevenueLabels, periodsStandInTheirOrder)
{
    EXPECT_THAT(texts(RevenueLabels::periods(), RevenueLabels::periodLabel),
        testing::ElementsAre(u"Today", u"Week", u"Month", u"All Time"));
    EXPECT_THAT(texts(RevenueLabels::periods(), RevenueLabels::periodSymbol),
        testing::ElementsAre(u"sun.max", u"7.square", u"calendar", u"infinity"));
}

TEST(RevenueLabels, currenciesStandInTheirOrder)
{
    EXPECT_THAT(RevenueLabels::currencies(), testing::ElementsAre(u"USD", u"EUR", u"GBP", u"CAD", u"AUD"));
}

TEST(RevenueLabels, aMetricThatAModeCardIsNamedAfterIsTakenApartInWords)
{
    EXPECT_THAT(texts(RevenueLabels::metrics(), RevenueLabels::metricName),
        testing::ElementsAre(u"METRIC Revenue", u"Orders", u"Avg", u"Top"));
}

TEST(RevenueLabels, onlyRevenueCatHasAFixedPeriod)
{
    for (const int provider : RevenueLabels::providers()) {
        const bool isRevenueCat = provider == static_cast<int>(RevenueProvider::RevenueCat);
        const QString expected = isRevenueCat ? QStringLiteral("RC: fixed 28d") : QString();
        EXPECT_EQ(RevenueLabels::periodNote(provider), expected) << provider;
    }
}

TEST(RevenueLabels, eachSymbolIsDrawn)
{
    const QStringList symbols = texts(RevenueLabels::providers(), RevenueLabels::providerSymbol)
        + texts(RevenueLabels::metrics(), RevenueLabels::metricSymbol)
        + texts(RevenueLabels::periods(), RevenueLabels::periodSymbol);

    for (const QString &symbol : symbols) {
        const QString file = QStringLiteral(":/qt-project.org/imports/Glimmet/symbols/%1.svg").arg(symbol);
        EXPECT_TRUE(QFile::exists(file)) << qPrintable(file);
    }
}

} // namespace glimmet
