#include "core/PreferencesKeys.h"
#include "tests/support/TestWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DeadlineList : public TickerTest {
protected:
    QStringList upcoming() const { return titles(ticker.upcomingDeadlines()); }
    QStringList kept() const { return titles(ticker.deadlines()); }

private:
    static QStringList titles(const QList<Deadline> &deadlines)
    {
        QStringList list;
        for (const Deadline &deadline : deadlines)
            list.append(deadline.title);
        return list;
    }
};

TEST_F(DeadlineList, isUpcomingOnlyStrictlyBeforeItIsDue)
{
    ticker.setDeadlines(
        { world.deadline(u"past"_s, -0.001), world.deadline(u"now"_s, 0), world.deadline(u"soon"_s, 0.001) });

    EXPECT_THAT(upcoming(), ElementsAre(u"soon"_s));
}

TEST_F(DeadlineList, isUpcomingWithTheEarliestFirst)
{
    ticker.setDeadlines(
        { world.deadline(u"c"_s, 30), world.deadline(u"a"_s, 10), world.deadline(u"b"_s, 20) });

    EXPECT_THAT(upcoming(), ElementsAre(u"a"_s, u"b"_s, u"c"_s));
    EXPECT_THAT(kept(), ElementsAre(u"c"_s, u"a"_s, u"b"_s));
}

// Lists as long as this are where an unstable sort begins to mix equal dates.
TEST_F(DeadlineList, keepsTheOrderOfEqualDates)
{
    QStringList first;
    QStringList second;
    QList<Deadline> deadlines;
    for (int i = 0; i < 60; ++i) {
        (i % 2 == 0 ? second : first).append(QString::number(i));
        deadlines.append(world.deadline(QString::number(i), i % 2 == 0 ? 200 : 100));
    }
    ticker.setDeadlines(deadlines);

    EXPECT_EQ(upcoming(), first + second);
}

TEST_F(DeadlineList, isSortedByAddingAndKeepsTheOrderOfEqualDates)
{
    ticker.setDeadlines({});
    QStringList added;
    ticker.addDeadline(world.deadline(u"last"_s, 200));
    for (int i = 0; i < 40; ++i) {
        added.append(QString::number(i));
        ticker.addDeadline(world.deadline(added.last(), 100));
    }
    ticker.addDeadline(world.deadline(u"first"_s, 50));

    EXPECT_EQ(kept(), QStringList{ u"first"_s } + added + QStringList{ u"last"_s });
}

TEST_F(DeadlineList, acceptsPastEmptyAndRepeatedDeadlines)
{
    const Deadline past = world.deadline(QString(), -5000);
    ticker.addDeadline(past);
    ticker.addDeadline(past);

    EXPECT_EQ(ticker.deadlines(), QList<Deadline>({ past, past }));
    EXPECT_THAT(upcoming(), IsEmpty());
}

TEST_F(DeadlineList, keepsADeadlineThatHasPassed)
{
    ticker.addDeadline(world.deadline(u"launch"_s, 5));
    tick(5);

    EXPECT_THAT(upcoming(), IsEmpty());
    EXPECT_THAT(kept(), ElementsAre(u"launch"_s));
}

TEST_F(DeadlineList, losesEveryDeadlineOfARemovedIdentity)
{
    const Deadline twice = world.deadline(u"twice"_s, 10);
    ticker.setDeadlines({ twice, world.deadline(u"b"_s, 5), { twice.id, u"other title"_s, twice.date },
        world.deadline(u"a"_s, 1) });

    ticker.removeDeadline(twice.id);

    EXPECT_THAT(kept(), ElementsAre(u"b"_s, u"a"_s));
}

TEST_F(DeadlineList, staysAsItIsWhereARemovedIdentityIsUnknown)
{
    ticker.setDeadlines({ world.deadline(u"a"_s, 1) });
    ticker.removeDeadline(QUuid::createUuid());

    EXPECT_THAT(kept(), ElementsAre(u"a"_s));
}

TEST_F(DeadlineList, takesATitleWithoutTheBlanksAroundIt)
{
    const Instant date = world.clock.now().advanced(60);

    ticker.addDeadline(u" \t Math  Exam\u3000"_s, date);

    ASSERT_THAT(kept(), ElementsAre(u"Math  Exam"_s));
    EXPECT_EQ(ticker.deadlines().first().date, date);
}

TEST_F(DeadlineList, refusesATitleOfBlanksOnly)
{
    world.preferences.forgetWrites();

    ticker.addDeadline(u" \t "_s, world.clock.now());
    ticker.addDeadline(QString(), world.clock.now());

    EXPECT_THAT(kept(), IsEmpty());
    EXPECT_THAT(world.preferences.writes(), IsEmpty());
}

TEST_F(DeadlineList, givesEachNewTitleAnIdentityOfItsOwn)
{
    ticker.addDeadline(u"a"_s, world.clock.now());
    ticker.addDeadline(u"a"_s, world.clock.now());

    ASSERT_EQ(ticker.deadlines().size(), 2);
    EXPECT_NE(ticker.deadlines().first().id, ticker.deadlines().last().id);
    EXPECT_FALSE(ticker.deadlines().first().id.isNull());
}

TEST_F(DeadlineList, knowsAnIdentityByItsText)
{
    ticker.setDeadlines({ world.deadline(u"a"_s, 1), world.deadline(u"b"_s, 2) });

    ticker.removeDeadline(ticker.deadlines().first().id.toString(QUuid::WithoutBraces));
    ticker.removeDeadline(u"no identity"_s);

    EXPECT_THAT(kept(), ElementsAre(u"b"_s));
}

TEST_F(DeadlineList, isClearedOfPassedAndUpcomingOnesAndStoredAtOnce)
{
    ticker.setDeadlines({ world.deadline(u"passed"_s, -1), world.deadline(u"to come"_s, 1) });

    ticker.clearDeadlines();

    EXPECT_THAT(kept(), IsEmpty());
    EXPECT_EQ(world.preferences.data(QString(PreferencesKeys::deadlines)), "[]");
}

TEST(Deadline, isEqualOnlyInAllThreeFields)
{
    const Deadline deadline{ QUuid::createUuid(), u"launch"_s, { 1 } };

    EXPECT_EQ(deadline, (Deadline{ deadline.id, u"launch"_s, { 1 } }));
    EXPECT_FALSE(deadline == (Deadline{ QUuid::createUuid(), u"launch"_s, { 1 } }));
    EXPECT_FALSE(deadline == (Deadline{ deadline.id, u"Launch"_s, { 1 } }));
    EXPECT_FALSE(deadline == (Deadline{ deadline.id, u"launch"_s, { 2 } }));
}

TEST_F(DeadlineList, keepsIdentityAndPlaceOfADeadlineThatIsRenamed)
{
    ticker.setDeadlines({ world.deadline(u"b"_s, 20), world.deadline(u"a"_s, 10) });
    const Deadline b = ticker.deadlines().first();

    ticker.replaceDeadline(b.id, u" exam "_s, b.date);

    EXPECT_THAT(kept(), ElementsAre(u"exam"_s, u"a"_s));
    EXPECT_EQ(ticker.deadlines().first().id, b.id);
    EXPECT_EQ(deadlinesFromJson(*world.preferences.data(PreferencesKeys::deadlines)), ticker.deadlines());
}

TEST_F(DeadlineList, isSortedWhereADeadlineGetsAnotherDate)
{
    ticker.setDeadlines({ world.deadline(u"a"_s, 10), world.deadline(u"b"_s, 20) });

    ticker.replaceDeadline(ticker.deadlines().first().id, u"a"_s, world.clock.now().advanced(30));

    EXPECT_THAT(kept(), ElementsAre(u"b"_s, u"a"_s));
}

TEST_F(DeadlineList, staysWhereATitleIsBlankOrADeadlineUnknown)
{
    ticker.setDeadlines({ world.deadline(u"a"_s, 10) });
    const QList<Deadline> before = ticker.deadlines();

    ticker.replaceDeadline(before.first().id, u" \t"_s, world.clock.now().advanced(30));
    ticker.replaceDeadline(QUuid::createUuid(), u"x"_s, world.clock.now());

    EXPECT_EQ(ticker.deadlines(), before);
}

} // namespace
} // namespace glimmet
