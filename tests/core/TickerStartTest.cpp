#include "core/PreferencesKeys.h"
#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TickerStart : public testing::Test {
protected:
    /// Stores a value as an earlier launch did, and forgets that it was written.
    void store(const QString &key, const QStringList &list)
    {
        world.preferences.setStringList(key, list);
        world.preferences.forgetWrites();
    }
    void store(const QString &key, const QByteArray &data)
    {
        world.preferences.setData(key, data);
        world.preferences.forgetWrites();
    }

    TestWorld world;
};

TEST_F(TickerStart, readsSymbolsThenQuotesThenDeadlines)
{
    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(world.preferences.reads(),
        ElementsAre(PreferencesKeys::cryptoSymbols, PreferencesKeys::quotes, PreferencesKeys::deadlines));
}

TEST_F(TickerStart, writesOnlyTheSymbolsOnTheFirstLaunch)
{
    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(world.preferences.writes(), ElementsAre(PreferencesKeys::cryptoSymbols));
    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::cryptoSymbols),
        QStringList({ u"BTC-USD"_s, u"ETH-USD"_s }));
}

TEST_F(TickerStart, writesEveryStoredListBackInTheOrderOfReading)
{
    store(PreferencesKeys::cryptoSymbols, QStringList{ u"AAPL"_s });
    store(PreferencesKeys::quotes, QStringList{ u"breathe"_s });
    store(PreferencesKeys::deadlines, QByteArray("[]"));

    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(world.preferences.writes(),
        ElementsAre(PreferencesKeys::cryptoSymbols, PreferencesKeys::quotes, PreferencesKeys::deadlines));
}

TEST_F(TickerStart, keepsAStoredEmptySymbolListEmpty)
{
    store(PreferencesKeys::cryptoSymbols, QStringList());

    TickerViewModel ticker(world.forTicker());
    ticker.setMode(TickerMode::Crypto);
    world.timers.advance(1s);

    EXPECT_THAT(ticker.cryptoSymbols(), IsEmpty());
    EXPECT_EQ(ticker.currentDisplay(), u"add symbol"_s);
}

TEST_F(TickerStart, usesTheDefaultQuotesWhereTheStoredListIsEmpty)
{
    store(PreferencesKeys::quotes, QStringList());

    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(ticker.customQuotes(), IsEmpty());
    EXPECT_EQ(ticker.activeQuotes().size(), 10);
    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::quotes), QStringList());
}

TEST_F(TickerStart, takesQuotesOfAnotherTypeForNoneAndLeavesThemAlone)
{
    store(PreferencesKeys::quotes, QByteArray("breathe"));

    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(ticker.customQuotes(), IsEmpty());
    EXPECT_EQ(world.preferences.data(PreferencesKeys::quotes), QByteArray("breathe"));
}

TEST_F(TickerStart, takesSymbolsOfAnotherTypeForAbsentOnes)
{
    store(PreferencesKeys::cryptoSymbols, QByteArray("BTC"));

    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(ticker.cryptoSymbols(), ElementsAre(u"BTC-USD"_s, u"ETH-USD"_s));
}

TEST_F(TickerStart, takesDeadlinesOfAnotherTypeForNoneAndLeavesThemAlone)
{
    store(PreferencesKeys::deadlines, QStringList{ u"launch"_s });

    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(ticker.deadlines(), IsEmpty());
    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::deadlines), QStringList{ u"launch"_s });
}

TEST_F(TickerStart, keepsUndecodableDeadlinesInTheStoreUntilTheNextChange)
{
    store(PreferencesKeys::deadlines, QByteArray("[{\"id\":1}]"));

    TickerViewModel ticker(world.forTicker());
    EXPECT_THAT(ticker.deadlines(), IsEmpty());
    EXPECT_EQ(world.preferences.data(PreferencesKeys::deadlines), QByteArray("[{\"id\":1}]"));

    ticker.setDeadlines({});
    EXPECT_EQ(world.preferences.data(PreferencesKeys::deadlines), QByteArray("[]"));
}

TEST_F(TickerStart, takesDeadlinesAsStoredUnsortedAndWithThePastOnes)
{
    const QList<Deadline> stored{ world.deadline(u"later"_s, 500), world.deadline(u"past"_s, -500) };
    store(PreferencesKeys::deadlines, *deadlinesToJson(stored));

    const TickerViewModel ticker(world.forTicker());

    EXPECT_EQ(ticker.deadlines(), stored);
}

TEST_F(TickerStart, showsTheTimeBeforeAnySecondPasses)
{
    const TickerViewModel ticker(world.forTicker());

    EXPECT_EQ(ticker.currentDisplay(), u"09:05:07"_s);
}

TEST_F(TickerStart, runsTheDisplayTheRevenueAndThePriceTimer)
{
    const TickerViewModel ticker(world.forTicker());

    EXPECT_THAT(world.timers.running(), ElementsAre(1s, 300s, 300s));
}

TEST_F(TickerStart, fetchesRevenueAndEveryPriceOnceInClockMode)
{
    const TickerViewModel ticker(world.forTicker());

    EXPECT_EQ(world.revenue.count(), 1U);
    EXPECT_THAT(world.prices.asked(), ElementsAre(u"BTC-USD"_s, u"ETH-USD"_s));
}

TEST_F(TickerStart, againReplacesTheTimersInsteadOfAddingToThem)
{
    TickerViewModel ticker(world.forTicker());

    ticker.start();

    EXPECT_EQ(world.timers.running().size(), 3U);
    EXPECT_EQ(world.revenue.count(), 2U);
}

} // namespace
} // namespace glimmet
