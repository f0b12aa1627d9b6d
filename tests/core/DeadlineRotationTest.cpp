#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

class DeadlineRotation : public TickerTest {
protected:
    DeadlineRotation() { ticker.setMode(TickerMode::Deadline); }
    QString shownTitle() const { return shown().section(u':', 0, 0); }
    void setThree()
    {
        ticker.setDeadlines({ world.deadline(u"b"_s, 200'000), world.deadline(u"a"_s, 100'000),
            world.deadline(u"c"_s, 300'000), world.deadline(u"past"_s, -1) });
    }
};

TEST_F(DeadlineRotation, saysThatThereAreNone)
{
    tick();
    EXPECT_EQ(shown(), u"no deadlines"_s);

    ticker.setDeadlines({ world.deadline(u"past"_s, -1) });
    tick();
    EXPECT_EQ(shown(), u"no deadlines"_s);
}

TEST_F(DeadlineRotation, showsTitleAndTimeLeft)
{
    ticker.setDeadlines({ world.deadline(u"Launch: v2"_s, 90'062) });
    tick();

    EXPECT_EQ(shown(), u"Launch: v2: 1d 1h"_s);
}

TEST_F(DeadlineRotation, countsDownToTheMinute)
{
    ticker.setDeadlines({ world.deadline(u"tea"_s, 181) });
    tick();
    EXPECT_EQ(shown(), u"tea: 3m"_s);
    tick();
    EXPECT_EQ(shown(), u"tea: 2m"_s);
    tick(178);
    EXPECT_EQ(shown(), u"tea: 0m"_s);
    tick();
    EXPECT_EQ(shown(), u"no deadlines"_s);
}

TEST_F(DeadlineRotation, movesOnEveryEightTicksEarliestFirstAndWraps)
{
    setThree();
    QStringList titles;
    for (int i = 0; i < 32; ++i) {
        tick();
        titles.append(shownTitle());
    }

    const QStringList expected = QStringList(7, u"a"_s) + QStringList(8, u"b"_s) + QStringList(8, u"c"_s)
        + QStringList(8, u"a"_s) + QStringList{ u"b"_s };
    EXPECT_EQ(titles, expected);
}

TEST_F(DeadlineRotation, neverLeavesASingleDeadline)
{
    ticker.setDeadlines({ world.deadline(u"only"_s, 100'000), world.deadline(u"past"_s, -1) });
    tick(80);
    EXPECT_EQ(shownTitle(), u"only"_s);

    ticker.addDeadline(world.deadline(u"second"_s, 200'000));
    tick(7);
    EXPECT_EQ(shownTitle(), u"only"_s);
    tick();
    EXPECT_EQ(shownTitle(), u"second"_s);
}

TEST_F(DeadlineRotation, countsNoTicksOfOtherModesAndKeepsItsCountOverThem)
{
    setThree();
    tick(7);
    ticker.setMode(TickerMode::Clock);
    tick(90);
    ticker.setMode(TickerMode::Deadline);
    tick();

    EXPECT_EQ(shownTitle(), u"b"_s);
}

TEST_F(DeadlineRotation, showsTheIndexModuloTheCountAfterARemoval)
{
    setThree();
    tick(16);
    EXPECT_EQ(shownTitle(), u"c"_s);

    ticker.removeDeadline(ticker.deadlines().at(2).id);
    tick();
    EXPECT_EQ(shownTitle(), u"a"_s);
}

TEST_F(DeadlineRotation, endsTheProcessOverADateThatNoIntegerReaches)
{
    ticker.setDeadlines({ { QUuid::createUuid(), u"never"_s, { 1e300 } } });

    EXPECT_DEATH(tick(), "\\[glimmet\\] fatal: ");
}

/// A clock that moves a second whenever it is asked.
class HastyClock final : public Clock {
public:
    Instant now() const override { return Instant{ ++m_seconds }; }
    Instant last() const { return Instant{ m_seconds }; }

private:
    mutable double m_seconds = 0;
};

TEST(DeadlineDisplay, saysPassedWhereADeadlineFallsDueWhileItIsLookedAt)
{
    TestWorld world;
    const HastyClock clock;
    TickerViewModel ticker({ clock, world.region, world.timers, world.preferences });
    ticker.setMode(TickerMode::Deadline);

    ticker.setDeadlines({ { QUuid::createUuid(), u"tea"_s, clock.last().advanced(1.5) } });
    world.timers.advance(1s);
    EXPECT_EQ(ticker.currentDisplay(), u"tea: passed"_s);

    ticker.setDeadlines({ { QUuid::createUuid(), u"tea"_s, clock.last().advanced(2) } });
    world.timers.advance(1s);
    EXPECT_EQ(ticker.currentDisplay(), u"tea: passed"_s);
}

} // namespace
} // namespace glimmet
