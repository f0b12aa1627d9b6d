#include "ui/editors/DeadlineRows.h"

#include "tests/support/TestWorld.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace glimmet {
namespace {

using testing::ElementsAre;

class DeadlineRowsTest : public TickerTest {
protected:
    DeadlineRowsTest()
    {
        undo.setTicker(&ticker);
        rows.setUndo(&undo);
    }

    QStringList texts(DeadlineRows::Role role) const
    {
        QStringList list;
        for (int i = 0; i < rows.rowCount(); ++i)
            list.append(rows.index(i).data(role).toString());
        return list;
    }
    QStringList countdowns() const { return texts(DeadlineRows::CountdownRole); }

    DeadlineUndo undo;
    DeadlineRows rows;
    QAbstractItemModelTester tester{ &rows, QAbstractItemModelTester::FailureReportingMode::Fatal };
};

QString countdownAfter(double seconds)
{
    return countdown({ {}, {}, Instant{ 1000 } }, Instant{ 1000 - seconds });
}

TEST(Countdown, tellsTheTimeLeftAndThenThatItPassed)
{
    EXPECT_EQ(countdownAfter(90061), u"1d 1h"_s);
    EXPECT_EQ(countdownAfter(3700), u"1h 1m"_s);
    EXPECT_EQ(countdownAfter(0.5), u"0m"_s);
    EXPECT_EQ(countdownAfter(0), u"passed"_s);
    EXPECT_EQ(countdownAfter(-1), u"passed"_s);
}

TEST_F(DeadlineRowsTest, showsWhatThereIsAtFirst)
{
    ticker.setDeadlines({ world.deadline(u"b"_s, 3700), world.deadline(u"a"_s, 0) });

    DeadlineRows fresh;
    fresh.setUndo(&undo);

    ASSERT_EQ(fresh.count(), 2);
    EXPECT_EQ(fresh.index(0).data(DeadlineRows::TitleRole), u"b"_s);
    EXPECT_EQ(fresh.index(0).data(DeadlineRows::DateTextRole), u"4 May 2026, 10:06"_s);
    EXPECT_EQ(fresh.index(0).data(DeadlineRows::CountdownRole), u"1h 1m"_s);
    EXPECT_EQ(fresh.index(0).data(DeadlineRows::IsPassedRole), false);
    EXPECT_EQ(fresh.index(1).data(DeadlineRows::CountdownRole), u"passed"_s);
    EXPECT_EQ(fresh.index(1).data(DeadlineRows::IsPassedRole), true);
    EXPECT_EQ(fresh.index(0).data(DeadlineRows::IdRole),
        ticker.deadlines().first().id.toString(QUuid::WithoutBraces));
}

TEST_F(DeadlineRowsTest, followsTheList)
{
    ticker.addDeadline(u"b"_s, world.clock.now().advanced(20));
    ticker.addDeadline(u"a"_s, world.clock.now().advanced(10));
    EXPECT_THAT(texts(DeadlineRows::TitleRole), ElementsAre(u"a"_s, u"b"_s));

    ticker.removeDeadline(ticker.deadlines().first().id);
    EXPECT_THAT(texts(DeadlineRows::TitleRole), ElementsAre(u"b"_s));

    ticker.clearDeadlines();
    EXPECT_EQ(rows.count(), 0);
}

TEST_F(DeadlineRowsTest, keepsTheRowsThatStay)
{
    ticker.setDeadlines(
        { world.deadline(u"a"_s, 10), world.deadline(u"b"_s, 20), world.deadline(u"c"_s, 30) });
    const QPersistentModelIndex c = rows.index(2);
    const QPersistentModelIndex b = rows.index(1);

    ticker.removeDeadline(ticker.deadlines().first().id);
    EXPECT_EQ(b.row(), 0);
    EXPECT_EQ(c.row(), 1);
    ticker.addDeadline(u"d"_s, world.clock.now().advanced(25));

    EXPECT_THAT(texts(DeadlineRows::TitleRole), ElementsAre(u"b"_s, u"d"_s, u"c"_s));
    EXPECT_EQ(b.row(), 0);
}

TEST_F(DeadlineRowsTest, putsATitleOnOneLine)
{
    ticker.setDeadlines({ world.deadline(u"one\ntwo"_s, 10) });

    EXPECT_THAT(texts(DeadlineRows::TitleRole), ElementsAre(u"one two"_s));
}

TEST_F(DeadlineRowsTest, followsADeadlineThatChangesUnderItsIdentity)
{
    Deadline deadline = world.deadline(u"a"_s, 61);
    ticker.setDeadlines({ deadline });

    deadline.title = u"b"_s;
    deadline.date = deadline.date.advanced(60);
    ticker.setDeadlines({ deadline });

    EXPECT_THAT(texts(DeadlineRows::TitleRole), ElementsAre(u"b"_s));
    EXPECT_THAT(countdowns(), ElementsAre(u"2m"_s));
}

TEST_F(DeadlineRowsTest, countsDownWithTheTicksWithoutNewRows)
{
    ticker.setDeadlines({ world.deadline(u"a"_s, 61), world.deadline(u"b"_s, 3600) });
    const QSignalSpy rebuilds(&rows, &DeadlineRows::modelReset);

    EXPECT_THAT(countdowns(), ElementsAre(u"1m"_s, u"1h 0m"_s));
    tick(2);
    EXPECT_THAT(countdowns(), ElementsAre(u"0m"_s, u"59m"_s));
    tick(58);
    EXPECT_THAT(countdowns(), ElementsAre(u"0m"_s, u"59m"_s));
    tick(1);
    EXPECT_THAT(countdowns(), ElementsAre(u"passed"_s, u"58m"_s));
    EXPECT_EQ(rebuilds.count(), 0);
}

TEST_F(DeadlineRowsTest, tellsOnlyOfWhatChanged)
{
    ticker.setDeadlines(
        { world.deadline(u"a"_s, 1000), world.deadline(u"b"_s, 3), world.deadline(u"c"_s, -5) });
    QSignalSpy changes(&rows, &DeadlineRows::dataChanged);

    tick(2);
    EXPECT_EQ(changes.count(), 0);
    tick(1);

    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes.first().at(0).toModelIndex().row(), 1);
    EXPECT_EQ(changes.first().at(1).toModelIndex().row(), 1);
}

TEST_F(DeadlineRowsTest, countsThoseToComeAndFollowsTheTicks)
{
    ticker.setDeadlines(
        { world.deadline(u"a"_s, 2), world.deadline(u"b"_s, 100), world.deadline(u"c"_s, 0) });
    const QSignalSpy changes(&rows, &DeadlineRows::activeCountChanged);

    EXPECT_EQ(rows.activeCount(), 2);
    EXPECT_EQ(rows.activeCount(), ticker.upcomingDeadlines().size());
    tick(2);
    EXPECT_EQ(rows.activeCount(), 1);
    EXPECT_EQ(changes.count(), 1);
    ticker.clearDeadlines();
    EXPECT_EQ(rows.activeCount(), 0);
}

TEST_F(DeadlineRowsTest, writesTheDatesAnewWhereTheRegionChanges)
{
    ticker.setDeadlines({ world.deadline(u"a"_s, 3600) });
    EXPECT_THAT(texts(DeadlineRows::DateTextRole), ElementsAre(u"4 May 2026, 10:05"_s));

    world.region.setZone("Europe/Berlin");
    tick();
    EXPECT_THAT(texts(DeadlineRows::DateTextRole), ElementsAre(u"4 May 2026, 11:05"_s));

    world.region.setLocale("de_DE");
    tick();
    EXPECT_THAT(texts(DeadlineRows::DateTextRole), ElementsAre(u"04.05.2026, 11:05"_s));
}

} // namespace
} // namespace glimmet
