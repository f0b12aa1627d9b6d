#include "core/PreferencesKeys.h"
#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TickerSaving : public TickerTest {
protected:
    TickerSaving() { world.preferences.forgetWrites(); }
    QStringList writes() const { return world.preferences.writes(); }
};

TEST_F(TickerSaving, storesAnEqualQuoteListAgain)
{
    ticker.setCustomQuotes({ u"breathe"_s });
    world.preferences.remove(PreferencesKeys::quotes);

    ticker.setCustomQuotes({ u"breathe"_s });

    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::quotes), QStringList{ u"breathe"_s });
}

TEST_F(TickerSaving, storesAnEqualDeadlineListAgain)
{
    const QList<Deadline> deadlines{ world.deadline(u"launch"_s, 60) };
    ticker.setDeadlines(deadlines);
    world.preferences.remove(PreferencesKeys::deadlines);

    ticker.setDeadlines(deadlines);

    EXPECT_EQ(world.preferences.data(PreferencesKeys::deadlines), deadlinesToJson(deadlines));
}

TEST_F(TickerSaving, storesAnEqualSymbolListAgainAndResetsTheIndex)
{
    ticker.setCurrentCryptoIndex(1);
    world.preferences.remove(PreferencesKeys::cryptoSymbols);

    ticker.setCryptoSymbols(ticker.cryptoSymbols());

    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::cryptoSymbols),
        QStringList({ u"BTC-USD"_s, u"ETH-USD"_s }));
    EXPECT_EQ(ticker.currentCryptoIndex(), 0);
}

TEST_F(TickerSaving, storesTheEmptyListOnReset)
{
    ticker.resetQuotes();

    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::quotes), QStringList());
    EXPECT_THAT(writes(), ElementsAre(PreferencesKeys::quotes));
}

TEST_F(TickerSaving, storesAnEmptiedQuoteListAsAnEmptyList)
{
    ticker.addQuote(u"breathe"_s);
    ticker.removeQuote(u"breathe"_s);

    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::quotes), QStringList());
}

TEST_F(TickerSaving, storesAlsoAfterRemovingAnUnknownQuote)
{
    ticker.removeQuote(u"never had"_s);

    EXPECT_THAT(writes(), ElementsAre(PreferencesKeys::quotes));
}

TEST_F(TickerSaving, doesNotStoreARefusedQuote)
{
    ticker.addQuote(u" \t "_s);

    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(TickerSaving, storesAnAddedDeadlineAsAppendedAndAsSorted)
{
    ticker.addDeadline(world.deadline(u"launch"_s, 60));

    EXPECT_THAT(writes(), ElementsAre(PreferencesKeys::deadlines, PreferencesKeys::deadlines));
}

TEST_F(TickerSaving, storesAlsoAfterRemovingAnUnknownDeadline)
{
    ticker.removeDeadline(QUuid::createUuid());

    EXPECT_THAT(writes(), ElementsAre(PreferencesKeys::deadlines));
}

TEST_F(TickerSaving, leavesTheStoredDeadlinesWhereADateCannotBeWritten)
{
    const QList<Deadline> good{ world.deadline(u"launch"_s, 60) };
    ticker.setDeadlines(good);

    for (const double date : { std::nan(""), HUGE_VAL, -HUGE_VAL })
        ticker.setDeadlines({ { QUuid::createUuid(), u"never"_s, { date } } });

    EXPECT_EQ(world.preferences.data(PreferencesKeys::deadlines), deadlinesToJson(good));
}

TEST_F(TickerSaving, writesNothingWhileTimePassesInAnyMode)
{
    for (const auto &[mode, name] : rawValues<TickerMode>) {
        ticker.setMode(mode);
        tick(400);
    }

    EXPECT_THAT(writes(), IsEmpty());
}

TEST_F(TickerSaving, writesNothingForOptionsThatDoNotOutliveALaunch)
{
    ticker.setCustomText(u"lunch"_s);
    ticker.setShowSeconds(false);
    ticker.setUse24Hour(false);
    ticker.setQuoteRotateInterval(5);
    ticker.setCryptoRotateInterval(5);
    ticker.setDodoCurrency(u"EUR"_s);

    EXPECT_THAT(writes(), IsEmpty());
}

} // namespace
} // namespace glimmet
