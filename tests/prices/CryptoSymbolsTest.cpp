#include "core/PreferencesKeys.h"
#include "tests/support/TestWorld.h"

#include <QSignalSpy>

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A ticker with the symbols BTC-USD and ETH, the second one on show; what it wrote and asked for before is
/// left out of `writes` and `asked`.
class CryptoSymbols : public TickerTest {
protected:
    CryptoSymbols() { showIn(TickerMode::Crypto); }

    void showIn(TickerMode mode)
    {
        ticker.setMode(mode);
        ticker.setCryptoSymbols({ u"BTC-USD"_s, u"ETH"_s });
        ticker.setCurrentCryptoIndex(1);
        world.preferences.forgetWrites();
        m_before = world.prices.asked().size();
    }
    QStringList symbols() const { return ticker.cryptoSymbols(); }
    QStringList stored() const
    {
        return world.preferences.stringList(PreferencesKeys::cryptoSymbols).value_or(QStringList());
    }
    QStringList asked() const { return world.prices.asked().sliced(m_before); }
    /// The list was assigned this often: each time stored, shown from its first on and asked for.
    void expectAssignments(int count) const
    {
        QStringList each;
        for (int assignment = 0; assignment < count; ++assignment)
            each += symbols();
        EXPECT_EQ(asked(), each);
        EXPECT_EQ(world.preferences.writes().count(PreferencesKeys::cryptoSymbols), count);
        EXPECT_EQ(stored(), symbols());
        EXPECT_EQ(ticker.currentCryptoIndex(), count == 0 ? 1 : 0);
    }

private:
    qsizetype m_before = 0;
};

TEST_F(CryptoSymbols, growByOneAtTheEnd)
{
    ticker.addCryptoSymbol(u"AAPL"_s);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s, u"AAPL"_s));
    expectAssignments(1);
}

TEST_F(CryptoSymbols, areKeptTrimmedAndInUpperCase)
{
    ticker.addCryptoSymbol(u" \t sol \u3000"_s);
    ticker.addCryptoSymbol(u"brk b"_s);
    ticker.addCryptoSymbol(u"ß"_s);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s, u"SOL"_s, u"BRK B"_s, u"SS"_s));
}

TEST_F(CryptoSymbols, stayAsTheyAreForASymbolThatIsKnown)
{
    for (const QString &known : { u"ETH"_s, u" eth\t"_s, u"btc-usd"_s, u"ETH,btc-USD, eth"_s })
        ticker.addCryptoSymbol(known);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s));
    expectAssignments(0);
}

TEST_F(CryptoSymbols, stayAsTheyAreForNothing)
{
    for (const QString &nothing : { u""_s, u" \t "_s, u","_s, u" , ,\t,,"_s, QString() })
        ticker.addCryptoSymbol(nothing);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s));
    expectAssignments(0);
}

TEST_F(CryptoSymbols, areDifferentWhereTheirTextsAre)
{
    ticker.addCryptoSymbol(u"btc"_s);
    ticker.addCryptoSymbol(u"eth-usd"_s);
    ticker.addCryptoSymbol(u"eth\n"_s);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s, u"BTC"_s, u"ETH-USD"_s, u"ETH\n"_s));
}

TEST_F(CryptoSymbols, areSplitAtCommasAndAssignedOnce)
{
    ticker.addCryptoSymbol(u" sol, aapl ,\ttsla"_s);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s, u"SOL"_s, u"AAPL"_s, u"TSLA"_s));
    expectAssignments(1);
}

TEST_F(CryptoSymbols, leaveOutEmptyAndKnownPieces)
{
    ticker.addCryptoSymbol(u",eth,, sol,SOL , ,btc-usd,sol,aapl,"_s);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s, u"SOL"_s, u"AAPL"_s));
    expectAssignments(1);
}

TEST_F(CryptoSymbols, areSplitAtCommasOnly)
{
    ticker.addCryptoSymbol(u"a;b c\nd、e，f"_s);

    EXPECT_EQ(symbols().size(), 3);
    EXPECT_EQ(symbols().last(), u"A;B C\nD、E，F"_s);
}

TEST_F(CryptoSymbols, haveNoUpperBound)
{
    QStringList many;
    for (int number = 0; number < 500; ++number)
        many.append(u'S' + QString::number(number));

    ticker.addCryptoSymbol(many.join(u','));

    EXPECT_EQ(symbols(), QStringList({ u"BTC-USD"_s, u"ETH"_s }) + many);
    expectAssignments(1);
}

TEST_F(CryptoSymbols, tellOfTheirGrowthOnce)
{
    const QSignalSpy changed(&ticker, &TickerViewModel::cryptoSymbolsChanged);

    ticker.addCryptoSymbol(u"SOL,AAPL"_s);
    ticker.addCryptoSymbol(u"SOL"_s);
    ticker.removeCryptoSymbol(u"no such"_s);

    EXPECT_EQ(changed.count(), 1);
}

TEST_F(CryptoSymbols, mayBeginWithTheFirstThatIsAdded)
{
    ticker.setCryptoSymbols({});
    ticker.addCryptoSymbol(u"sol"_s);
    tick();

    EXPECT_EQ(shown(), u"loading SOL…"_s);
}

TEST_F(CryptoSymbols, loseOneAndKeepTheOrderOfTheRest)
{
    ticker.addCryptoSymbol(u"SOL"_s);
    ticker.removeCryptoSymbol(u"ETH"_s);

    EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"SOL"_s));
    EXPECT_EQ(stored(), symbols());
    EXPECT_THAT(asked(), ElementsAre(u"BTC-USD"_s, u"ETH"_s, u"SOL"_s, u"BTC-USD"_s, u"SOL"_s));
}

TEST_F(CryptoSymbols, loseEveryEntryThatIsEqual)
{
    ticker.setCryptoSymbols({ u"A"_s, u"B"_s, u"A"_s, u"C"_s, u"A"_s });

    ticker.removeCryptoSymbol(u"A"_s);

    EXPECT_THAT(symbols(), ElementsAre(u"B"_s, u"C"_s));
}

TEST_F(CryptoSymbols, areAssignedAlsoWhereNoneIsRemoved)
{
    for (const QString &other : { u"eth"_s, u" ETH"_s, u"ETH "_s, u"ETH-USD"_s, u"ETH,BTC-USD"_s, u""_s }) {
        showIn(TickerMode::Crypto);

        ticker.removeCryptoSymbol(other);

        EXPECT_THAT(symbols(), ElementsAre(u"BTC-USD"_s, u"ETH"_s));
        expectAssignments(1);
    }
}

TEST_F(CryptoSymbols, mayAllBeRemovedAndStayAway)
{
    ticker.removeCryptoSymbol(u"ETH"_s);
    ticker.removeCryptoSymbol(u"BTC-USD"_s);
    tick();
    EXPECT_EQ(shown(), u"add symbol"_s);

    const TickerViewModel relaunched(world.forTicker());

    EXPECT_THAT(relaunched.cryptoSymbols(), IsEmpty());
}

TEST_F(CryptoSymbols, areNotAskedForInAnotherMode)
{
    showIn(TickerMode::Clock);

    ticker.addCryptoSymbol(u"SOL"_s);
    ticker.removeCryptoSymbol(u"ETH"_s);

    EXPECT_THAT(asked(), IsEmpty());
    EXPECT_THAT(stored(), ElementsAre(u"BTC-USD"_s, u"SOL"_s));
}

TEST_F(CryptoSymbols, showTheirPriceAtOnceWhenTheyComeBack)
{
    world.prices.answerAtOnce({ u"ETH"_s, 105, 25, {} });
    ticker.removeCryptoSymbol(u"BTC-USD"_s);
    ticker.removeCryptoSymbol(u"ETH"_s);
    EXPECT_TRUE(ticker.cryptoPrices().contains(u"ETH"_s));
    world.prices.answerAtOnce({ u"ETH"_s, 106, 25, {} });
    ticker.setMode(TickerMode::Clock);

    ticker.addCryptoSymbol(u"eth"_s);
    ticker.setMode(TickerMode::Crypto);
    tick();

    EXPECT_EQ(shown(), u"ETH $105 (↑25.0%)"_s);
}

} // namespace
} // namespace glimmet
