#include "prices/PriceList.h"
#include "tests/support/FakePriceSource.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

/// A list of A and B whose machine has just slept: the requests 0 and 1 are those of the awakening.
class PricesAfterSleep : public testing::Test {
protected:
    PricesAfterSleep()
    {
        list.setSymbols({ u"A"_s, u"B"_s });
        list.startTimer();
        timers.advance(100s);
        list.startAnew();
    }
    void failAllWithoutNetwork()
    {
        for (; m_failed < source.asked().size(); ++m_failed)
            source.answer(static_cast<std::size_t>(m_failed), PriceFailure::NoNetwork);
    }

    MemoryPreferences preferences;
    ManualClock clock;
    ManualTimers timers{ clock };
    FakePriceSource source;
    PriceList list{ { clock, preferences, u"symbols"_s, timers, &source, [] { return false; } } };

private:
    qsizetype m_failed = 0;
};

TEST_F(PricesAfterSleep, areAskedForAtOnceAndFiveMinutesLater)
{
    EXPECT_THAT(source.asked(), ElementsAre(u"A"_s, u"B"_s));

    timers.advance(300s - 1ms);
    EXPECT_EQ(source.asked().size(), 2);
    timers.advance(1ms);
    EXPECT_EQ(source.asked().size(), 4);
}

TEST_F(PricesAfterSleep, areTriedAgainThreeTimesWhileThereIsNoNetwork)
{
    for (const auto &[wait, count] :
        std::vector<std::pair<std::chrono::seconds, int>>{ { 5s, 4 }, { 10s, 6 }, { 30s, 8 }, { 250s, 8 } }) {
        failAllWithoutNetwork();
        timers.advance(wait - 1ms);
        EXPECT_LE(source.asked().size(), count);
        timers.advance(1ms);
        EXPECT_EQ(source.asked().size(), count);
    }
}

TEST_F(PricesAfterSleep, areTriedAgainOnlyWhereTheyFoundNoNetwork)
{
    source.answer(0, CryptoPrice{ u"A"_s, 1, 0, {} });
    source.answer(1, PriceFailure::NoNetwork);
    timers.advance(5s);
    EXPECT_THAT(source.asked(), ElementsAre(u"A"_s, u"B"_s, u"B"_s));

    source.answer(2, PriceFailure::Unreadable);
    timers.advance(200s);
    EXPECT_EQ(source.asked().size(), 3);
}

TEST_F(PricesAfterSleep, areNotDoubledWhileTheyAreUnderWay)
{
    timers.advance(15s);

    EXPECT_EQ(source.asked().size(), 2);
}

TEST_F(PricesAfterSleep, areNotTriedAgainOnceStopped)
{
    failAllWithoutNetwork();

    list.stopTimer();
    timers.advance(1h);

    EXPECT_EQ(source.asked().size(), 2);
    EXPECT_THAT(timers.running(), IsEmpty());
}

TEST_F(PricesAfterSleep, areNotTriedAgainWhereNobodySlept)
{
    source.answer(0, CryptoPrice{ u"A"_s, 1, 0, {} });
    source.answer(1, CryptoPrice{ u"B"_s, 1, 0, {} });
    timers.advance(45s);
    list.fetchAll();

    source.answer(2, PriceFailure::NoNetwork);
    timers.advance(200s);

    EXPECT_EQ(source.asked().size(), 4);
}

} // namespace
} // namespace glimmet
