#include "ui/editors/RevenueFaces.h"
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

TEST(RevenueFaces, providersStandInTheirOrder)
{
    EXPECT_THAT(texts(RevenueFaces::providers(), RevenueFaces::providerLabel),
        testing::ElementsAre(u"Polar", u"RevenueCat", u"Dodo", u"Stripe", u"Lemon Squeezy"));
    EXPECT_THAT(texts(RevenueFaces::providers(), RevenueFaces::providerSymbol),
        testing::ElementsAre(
            u"bolt.circle", u"chart.bar.fill", u"creditcard", u"s.circle.fill", u"l.circle.fill"));
}

TEST(RevenueFaces, metricsStandInTheirOrder)
{
    EXPECT_THAT(texts(RevenueFaces::metrics(), RevenueFaces::metricLabel),
        testing::ElementsAre(u"Revenue", u"Orders", u"Avg", u"Top"));
    EXPECT_THAT(texts(RevenueFaces::metrics(), RevenueFaces::metricSymbol),
        testing::ElementsAre(u"dollarsign", u"bag", u"chart.bar", u"crown"));
}

TEST(RevenueFaces, periodsStandInTheirOrder)
{
    EXPECT_THAT(texts(RevenueFaces::periods(), RevenueFaces::periodLabel),
        testing::ElementsAre(u"Today", u"Week", u"Month", u"All Time"));
    EXPECT_THAT(texts(RevenueFaces::periods(), RevenueFaces::periodSymbol),
        testing::ElementsAre(u"sun.max", u"7.square", u"calendar", u"infinity"));
}

TEST(RevenueFaces, currenciesStandInTheirOrder)
{
    EXPECT_THAT(RevenueFaces::currencies(), testing::ElementsAre(u"USD", u"EUR", u"GBP", u"CAD", u"AUD"));
}

TEST(RevenueFaces, aMetricThatAModeCardIsNamedAfterIsTakenApartInWords)
{
    EXPECT_THAT(texts(RevenueFaces::metrics(), RevenueFaces::metricName),
        testing::ElementsAre(u"METRIC Revenue", u"Orders", u"Avg", u"Top"));
}

TEST(RevenueFaces, onlyRevenueCatHasAFixedPeriod)
{
    for (const int provider : RevenueFaces::providers()) {
        const bool isRevenueCat = provider == static_cast<int>(RevenueProvider::RevenueCat);
        const QString expected = isRevenueCat ? QStringLiteral("RC: fixed 28d") : QString();
        EXPECT_EQ(RevenueFaces::periodNote(provider), expected) << provider;
    }
}

TEST(RevenueFaces, eachSymbolIsDrawn)
{
    const QStringList symbols = texts(RevenueFaces::providers(), RevenueFaces::providerSymbol)
        + texts(RevenueFaces::metrics(), RevenueFaces::metricSymbol)
        + texts(RevenueFaces::periods(), RevenueFaces::periodSymbol);

    for (const QString &symbol : symbols) {
        const QString file = QStringLiteral(":/qt-project.org/imports/Glimmet/symbols/%1.svg").arg(symbol);
        EXPECT_TRUE(QFile::exists(file)) << qPrintable(file);
    }
}

} // namespace glimmet
