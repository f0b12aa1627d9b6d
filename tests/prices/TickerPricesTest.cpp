#include "core/PreferencesKeys.h"
#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A ticker in Crypto mode with the symbols A, B and C; what it asked for before is left out of `asked`.
class TickerPrices : public TickerTest {
protected:
    TickerPrices()
    {
        ticker.setCryptoSymbols({ u"A"_s, u"B"_s, u"C"_s });
        ticker.setMode(TickerMode::Crypto);
        m_before = world.prices.asked().size();
    }
    QStringList asked() const { return world.prices.asked().sliced(m_before); }
    void answer(qsizetype request, const PriceResult &result)
    {
        world.prices.answer(static_cast<std::size_t>(m_before + request), result);
    }

private:
    qsizetype m_before = 0;
};

TEST_F(TickerPrices, moveOnEveryTenTicksAndAskForTheOneOnShow)
{
    tick(9);
    EXPECT_EQ(shown(), u"loading A…"_s);
    EXPECT_THAT(asked(), IsEmpty());
    tick();
    EXPECT_EQ(shown(), u"loading B…"_s);
    EXPECT_THAT(asked(), ElementsAre(u"B"_s));
    tick(10);
    EXPECT_EQ(shown(), u"loading C…"_s);
    tick(10);
    EXPECT_EQ(shown(), u"loading A…"_s);
    EXPECT_THAT(asked(), ElementsAre(u"B"_s, u"C"_s, u"A"_s));
}

TEST_F(TickerPrices, moveOnEveryTickWithIntervalZeroOneOrLess)
{
    for (const qint64 interval : { 1, 0, -7 }) {
        ticker.setCryptoRotateInterval(interval);
        tick();
    }

    EXPECT_THAT(asked(), ElementsAre(u"B"_s, u"C"_s, u"A"_s));
}

TEST_F(TickerPrices, countNoTicksOfOtherModesAndKeepTheirCount)
{
    tick(9);
    ticker.setMode(TickerMode::Clock);
    tick(100);
    ticker.setMode(TickerMode::Crypto);
    EXPECT_EQ(ticker.currentCryptoIndex(), 0);
    tick();

    EXPECT_EQ(ticker.currentCryptoIndex(), 1);
}

TEST_F(TickerPrices, countNoTicksOfAnEmptyList)
{
    tick(9);
    ticker.setCryptoSymbols({});
    tick(100);
    EXPECT_EQ(shown(), u"add symbol"_s);
    ticker.setCryptoSymbols({ u"A"_s, u"B"_s });
    tick();

    EXPECT_EQ(shown(), u"loading B…"_s);
}

TEST_F(TickerPrices, keepASingleSymbolAndAskForItEveryInterval)
{
    ticker.setCryptoSymbols({ u"ONE"_s });
    const auto before = asked();
    tick(20);

    EXPECT_EQ(ticker.currentCryptoIndex(), 0);
    EXPECT_EQ(asked().sliced(before.size()), QStringList({ u"ONE"_s, u"ONE"_s }));
}

TEST_F(TickerPrices, areReadByTheIndexModuloTheCount)
{
    ticker.setCurrentCryptoIndex(7);
    tick();
    EXPECT_EQ(shown(), u"loading B…"_s);

    ticker.setCurrentCryptoIndex(-1);
    tick();
    EXPECT_EQ(shown(), u"loading C…"_s);
}

TEST_F(TickerPrices, showTheRecordOnceItArrives)
{
    tick(10);
    answer(0, CryptoPrice{ u"B"_s, 105, 25, {} });
    EXPECT_EQ(shown(), u"loading B…"_s);
    tick();

    EXPECT_EQ(shown(), u"B $105 (↑25.0%)"_s);
}

TEST_F(TickerPrices, keepTheLastRecordOverAFailure)
{
    tick(10);
    answer(0, CryptoPrice{ u"B"_s, 105, 25, {} });
    answer(0, PriceFailure::Unreadable);
    tick();

    EXPECT_EQ(shown(), u"B $105 (↑25.0%)"_s);
}

TEST_F(TickerPrices, keepTheRecordOfARemovedSymbol)
{
    tick(10);
    ticker.setCryptoSymbols({ u"A"_s });
    answer(0, CryptoPrice{ u"B"_s, 105, 25, {} });
    ticker.setCryptoSymbols({ u"B"_s });
    tick();

    EXPECT_EQ(shown(), u"B $105 (↑25.0%)"_s);
}

TEST_F(TickerPrices, startOverAndAskForAllAfterEveryAssignmentInTheirMode)
{
    tick(10);
    ticker.setCryptoSymbols({ u"A"_s, u"B"_s, u"C"_s });

    EXPECT_EQ(ticker.currentCryptoIndex(), 0);
    EXPECT_THAT(asked(), ElementsAre(u"B"_s, u"A"_s, u"B"_s, u"C"_s));
}

TEST_F(TickerPrices, areNotAskedForByAnAssignmentInAnotherMode)
{
    ticker.setMode(TickerMode::Clock);
    ticker.setCryptoSymbols({ u"D"_s });

    EXPECT_THAT(asked(), IsEmpty());
    EXPECT_EQ(world.preferences.stringList(PreferencesKeys::cryptoSymbols), QStringList{ u"D"_s });
}

TEST_F(TickerPrices, areAllAskedForByTheirModeCardAlsoByASecondTap)
{
    ticker.chooseMode(TickerMode::Crypto);
    ticker.chooseMode(TickerMode::Crypto);

    EXPECT_THAT(asked(), ElementsAre(u"A"_s, u"B"_s, u"C"_s, u"A"_s, u"B"_s, u"C"_s));
}

TEST_F(TickerPrices, areAllRefreshedEveryFiveMinutesInEveryMode)
{
    ticker.setMode(TickerMode::Clock);
    world.timers.advance(300s - 1ms);
    EXPECT_THAT(asked(), IsEmpty());
    world.timers.advance(1ms);

    EXPECT_THAT(asked(), ElementsAre(u"A"_s, u"B"_s, u"C"_s));
}

TEST_F(TickerPrices, areFirstRefreshedFiveMinutesAfterANewStart)
{
    ticker.setMode(TickerMode::Clock);
    world.timers.advance(299s);
    ticker.startCryptoPriceTimer();
    world.timers.advance(299s);
    EXPECT_THAT(asked(), IsEmpty());
    world.timers.advance(1s);

    EXPECT_EQ(asked().size(), 3);
}

TEST_F(TickerPrices, bearAListThatIsEmptiedWhenTheyMoveOn)
{
    QObject::connect(&ticker, &TickerViewModel::currentCryptoIndexChanged, &ticker, [this] {
        if (!ticker.cryptoSymbols().isEmpty())
            ticker.setCryptoSymbols({});
    });

    tick(10);

    EXPECT_EQ(shown(), u"add symbol"_s);
    EXPECT_THAT(asked(), IsEmpty());
}

TEST_F(TickerPrices, bearAListThatChangesWhileAllAreAskedFor)
{
    world.prices.answerAtOnce({ u"A"_s, 1, 0, {} });
    QObject::connect(&ticker, &TickerViewModel::cryptoPricesChanged, &ticker, [this] {
        ticker.setMode(TickerMode::Clock);
        ticker.setCryptoSymbols({});
    });

    ticker.fetchAllCryptoPrices();

    EXPECT_THAT(asked(), ElementsAre(u"A"_s, u"B"_s, u"C"_s));
}

} // namespace
} // namespace glimmet
