#include "prices/PriceList.h"
#include "tests/support/FakePriceSource.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gmock/gmock.h>

#include <memory>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const QString key = u"symbols"_s;

/// A list by itself; what is on show is the test's to say.
class PriceListTest : public testing::Test {
protected:
    PriceListWorld world()
    {
        return { clock, preferences, key, timers, &source, [this] { return isOnShow; } };
    }
    void tick(int count)
    {
        for (int i = 0; i < count; ++i)
            list->tick();
    }

    /// Asks for all and answers for one of them.
    void answerLatest(const CryptoPrice &price) { answerLatest(price.id, price); }
    void failLatest(const QString &symbol, PriceFailure reason) { answerLatest(symbol, reason); }
    std::optional<PriceFailure> trouble(const QString &symbol) const
    {
        return list->statuses().value(symbol).trouble();
    }

    bool isOnShow = false;
    MemoryPreferences preferences;
    ManualClock clock;
    ManualTimers timers{ clock };
    FakePriceSource source;
    std::unique_ptr<PriceList> list = std::make_unique<PriceList>(world());

private:
    void answerLatest(const QString &symbol, const PriceResult &result)
    {
        list->fetchAll();
        source.answer(static_cast<std::size_t>(source.asked().lastIndexOf(symbol)), result);
    }
};

TEST_F(PriceListTest, takesOverTheStoredSymbols)
{
    preferences.setStringList(key, { u"A"_s, u"B"_s });

    list->load();

    EXPECT_EQ(list->symbols(), QStringList({ u"A"_s, u"B"_s }));
}

TEST_F(PriceListTest, storesTheSymbolsThatItBeginsWithWhereThereAreNone)
{
    list->load();

    EXPECT_EQ(preferences.stringList(key), QStringList({ u"BTC-USD"_s, u"ETH-USD"_s }));
}

TEST_F(PriceListTest, storesAnEqualListAsWellAndTellsOnlyOfAChange)
{
    QSignalSpy changes(list.get(), &PriceList::symbolsChanged);
    list->setSymbols({ u"A"_s });
    list->setSymbols({ u"A"_s });

    EXPECT_THAT(preferences.writes(), ElementsAre(key, key));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(PriceListTest, beginsANewListWithItsFirstSymbol)
{
    list->setCurrentIndex(1);
    QSignalSpy moves(list.get(), &PriceList::currentIndexChanged);

    list->setSymbols({ u"A"_s, u"B"_s });

    EXPECT_EQ(list->currentIndex(), 0);
    EXPECT_EQ(moves.count(), 1);
}

TEST_F(PriceListTest, asksForANewListOnlyWhereItIsOnShow)
{
    list->setSymbols({ u"A"_s });
    EXPECT_THAT(source.asked(), IsEmpty());

    isOnShow = true;
    list->setSymbols({ u"A"_s, u"B"_s });
    EXPECT_THAT(source.asked(), ElementsAre(u"A"_s, u"B"_s));
}

TEST_F(PriceListTest, asksForAllEveryFiveMinutesWhileItsTimerRuns)
{
    list->setSymbols({ u"A"_s, u"B"_s });
    list->startTimer();
    timers.advance(299s);
    EXPECT_THAT(source.asked(), IsEmpty());

    timers.advance(1s);
    EXPECT_THAT(source.asked(), ElementsAre(u"A"_s, u"B"_s));
    timers.advance(5min);
    EXPECT_EQ(source.asked().size(), 4);

    list->stopTimer();
    timers.advance(1h);
    EXPECT_EQ(source.asked().size(), 4);
}

TEST_F(PriceListTest, beginsTheFiveMinutesAnewWhereItsTimerIsStartedAgain)
{
    list->startTimer();
    timers.advance(4min);
    list->startTimer();

    timers.advance(4min);
    EXPECT_THAT(source.asked(), IsEmpty());
    timers.advance(1min);
    EXPECT_EQ(source.asked().size(), 2);
}

TEST_F(PriceListTest, countsTicksOnlyWhileItIsOnShow)
{
    list->setSymbols({ u"A"_s, u"B"_s });
    list->setRotateInterval(3);
    tick(10);
    EXPECT_EQ(list->currentIndex(), 0);

    isOnShow = true;
    tick(2);
    EXPECT_EQ(list->display(), u"loading A…"_s);
    tick(1);
    EXPECT_EQ(list->display(), u"loading B…"_s);
    EXPECT_THAT(source.asked(), ElementsAre(u"B"_s));
}

TEST_F(PriceListTest, tellsOfAPriceThatIsNewAndOfNoFailure)
{
    QSignalSpy changes(list.get(), &PriceList::pricesChanged);
    list->setSymbols({ u"A"_s });
    list->fetchAll();
    const CryptoPrice price{ u"A"_s, 105, 25, {} };

    source.answer(0, price);
    source.answer(0, price);
    source.answer(0, PriceFailure::Unreadable);

    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(list->prices().value(u"A"_s), price);
    EXPECT_EQ(list->display(), u"A $105 (↑25.0%)"_s);
}

TEST_F(PriceListTest, tellsWhyThereIsNoPriceOnceThereWasNoneTwice)
{
    list->setSymbols({ u"A"_s, u"B"_s });
    QSignalSpy changes(list.get(), &PriceList::statusesChanged);

    failLatest(u"A"_s, PriceFailure::NoNetwork);
    EXPECT_EQ(trouble(u"A"_s), std::nullopt);
    failLatest(u"A"_s, PriceFailure::NotFound);
    EXPECT_EQ(trouble(u"A"_s), PriceFailure::NotFound);
    EXPECT_EQ(trouble(u"B"_s), std::nullopt);
    EXPECT_FALSE(list->prices().contains(u"A"_s));

    failLatest(u"A"_s, PriceFailure::NotFound);
    EXPECT_EQ(changes.count(), 2);
    failLatest(u"A"_s, PriceFailure::Unreadable);
    EXPECT_EQ(trouble(u"A"_s), PriceFailure::Unreadable);
    EXPECT_EQ(changes.count(), 3);
}

TEST_F(PriceListTest, countsFailuresAnewAfterAPrice)
{
    list->setSymbols({ u"A"_s });
    failLatest(u"A"_s, PriceFailure::NoAnswer);
    answerLatest(CryptoPrice{ u"A"_s, 105, 25, {} });
    failLatest(u"A"_s, PriceFailure::NoAnswer);
    EXPECT_EQ(trouble(u"A"_s), std::nullopt);

    failLatest(u"A"_s, PriceFailure::NoAnswer);
    EXPECT_EQ(trouble(u"A"_s), PriceFailure::NoAnswer);
    EXPECT_TRUE(list->prices().contains(u"A"_s));
    answerLatest(CryptoPrice{ u"A"_s, 105, 25, {} });
    EXPECT_EQ(trouble(u"A"_s), std::nullopt);
}

TEST_F(PriceListTest, knowsWhenAPriceCameAlsoAnEqualOne)
{
    list->setSymbols({ u"A"_s });
    EXPECT_EQ(list->statuses().value(u"A"_s).cameAt(), std::nullopt);

    answerLatest(CryptoPrice{ u"A"_s, 105, 25, {} });
    const Instant first = clock.now();
    EXPECT_EQ(list->statuses().value(u"A"_s).cameAt(), first);
    clock.pass(60s);
    failLatest(u"A"_s, PriceFailure::NoAnswer);
    EXPECT_EQ(list->statuses().value(u"A"_s).cameAt(), first);

    answerLatest(CryptoPrice{ u"A"_s, 105, 25, {} });
    EXPECT_EQ(list->statuses().value(u"A"_s).cameAt(), first.advanced(60));
}

TEST_F(PriceListTest, isStaleOnceThePriceOnShowIsOlderThanTwoRefreshes)
{
    list->setSymbols({ u"A"_s, u"B"_s });
    EXPECT_FALSE(list->isStale());
    answerLatest(CryptoPrice{ u"A"_s, 105, 25, {} });

    clock.pass(600s);
    EXPECT_FALSE(list->isStale());
    clock.pass(1s);
    EXPECT_TRUE(list->isStale());
    list->setCurrentIndex(1);
    EXPECT_FALSE(list->isStale());

    list->setCurrentIndex(0);
    answerLatest(CryptoPrice{ u"A"_s, 105, 25, {} });
    EXPECT_FALSE(list->isStale());
}

TEST_F(PriceListTest, isStaleOnceThePriceOnShowWasNotThereTwice)
{
    list->setSymbols({ u"A"_s, u"B"_s });
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(list->isStale());
        failLatest(u"A"_s, PriceFailure::NotFound);
    }
    EXPECT_TRUE(list->isStale());

    list->setCurrentIndex(1);
    EXPECT_FALSE(list->isStale());
    list->setSymbols({});
    EXPECT_FALSE(list->isStale());
}

TEST_F(PriceListTest, knowsThePriceOfASymbolThatWasRemoved)
{
    list->setSymbols({ u"A"_s, u"B"_s, u"A"_s });
    list->fetchAll();
    source.answer(0, CryptoPrice{ u"A"_s, 105, 25, {} });

    list->remove(u"A"_s);

    EXPECT_EQ(list->symbols(), QStringList{ u"B"_s });
    EXPECT_TRUE(list->prices().contains(u"A"_s));
}

TEST_F(PriceListTest, addsWhatIsNewAmongSymbolsThatCommasSeparate)
{
    list->setSymbols({ u"A"_s });

    list->add(u" b ,, a,c , B"_s);
    EXPECT_EQ(list->symbols(), QStringList({ u"A"_s, u"B"_s, u"C"_s }));

    preferences.forgetWrites();
    list->add(u"a, b,"_s);
    EXPECT_THAT(preferences.writes(), IsEmpty());
}

TEST_F(PriceListTest, takesNoAnswerAfterItsEnd)
{
    list->fetchAll();
    list->startTimer();

    list.reset();

    source.answer(0, CryptoPrice{ u"BTC-USD"_s, 105, 25, {} });
    EXPECT_TRUE(timers.running().empty());
}

TEST_F(PriceListTest, knowsNoPricesWithoutASource)
{
    PriceListWorld without = world();
    without.source = nullptr;
    PriceList alone(without);
    alone.setSymbols({ u"A"_s });

    alone.fetchAll();

    EXPECT_EQ(alone.display(), u"loading A…"_s);
}

} // namespace
} // namespace glimmet
