#include "tests/ui/editors/DateTimeEntryWorld.h"

#include <functional>

namespace glimmet {
namespace {

TEST_F(DateTimeEntryTest, keepsAGivenMomentThatHasPassedUntilItIsChanged)
{
    entry.begin(instantAt(u"2026-05-01T07:00:00Z"_s));
    tick();
    entry.leave();
    EXPECT_EQ(shown(), u"01/05/2026 08:00"_s);
    EXPECT_EQ(saved(), u"2026-05-01T07:00:00Z"_s);

    entry.step(4, 1);

    EXPECT_EQ(saved(), u"2026-05-04T08:05:08Z"_s);
}

TEST_F(DateTimeEntryTest, takesAnyDayBeforeItsMonth)
{
    moveTo("de_DE", "UTC", u"2026-04-03T20:05:07Z"_s);

    type(0, u"3105"_s);

    EXPECT_EQ(saved(), u"2026-05-31T20:05:00Z"_s);
}

TEST_F(DateTimeEntryTest, endsWithTheMonthWhereTheDayIsLater)
{
    type(0, u"3106"_s);

    entry.settle();

    EXPECT_EQ(shown(), u"30/06/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, mayBeInThePastOnTheWay)
{
    moveTo("en_US", "UTC", u"2026-05-04T20:05:07Z"_s);

    type(0, u"01102027"_s);

    EXPECT_EQ(saved(), u"2027-01-10T20:05:00Z"_s);
}

TEST_F(DateTimeEntryTest, settlesAPastMomentAtTheMinuteThatItIsNow)
{
    type(0, u"0105"_s);

    entry.settle();

    EXPECT_EQ(shown(), u"04/05/2026 09:05"_s);
    EXPECT_EQ(saved(), u"2026-05-04T08:05:07Z"_s);
}

TEST_F(DateTimeEntryTest, leavesReturnToItsForm)
{
    type(0, u"0105"_s);

    EXPECT_EQ(entry.pressKey(2, Qt::Key_Return, u"\r"_s), -1);
    EXPECT_EQ(entry.pressKey(2, Qt::Key_Enter, u"\r"_s), -1);

    EXPECT_EQ(shown(), u"01/05/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, isSeenBeforeItCountsWhereItHadToBeMoved)
{
    type(0, u"0105"_s);

    EXPECT_FALSE(entry.settleAsSeen());
    EXPECT_EQ(shown(), u"04/05/2026 09:05"_s);

    EXPECT_TRUE(entry.settleAsSeen());
    type(0, u"0205"_s);
    EXPECT_FALSE(entry.settleAsSeen());
}

TEST_F(DateTimeEntryTest, countsAtOnceWhereItCanBe)
{
    type(0, u"1205"_s);

    EXPECT_TRUE(entry.settleAsSeen());
    EXPECT_EQ(shown(), u"12/05/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, isNeverSavedBeforeNow)
{
    type(0, u"04"_s);
    type(3, u"0906"_s);
    entry.settle();
    EXPECT_EQ(shown(), u"04/05/2026 09:06"_s);

    tick(60);

    EXPECT_EQ(saved(), u"2026-05-04T08:06:07Z"_s);
}

TEST_F(DateTimeEntryTest, neverLetsItsDefaultPass)
{
    world.clock.advance(86398);
    tick();
    EXPECT_EQ(shown(), u"05/05/2026 09:05"_s);

    tick(1);

    EXPECT_EQ(shown(), u"06/05/2026 09:05"_s);
    EXPECT_EQ(saved(), u"2026-05-06T08:05:07Z"_s);
}

TEST_F(DateTimeEntryTest, keepsWhatWasEnteredWhileTimePasses)
{
    type(3, u"1000"_s);

    tick(5);

    EXPECT_EQ(saved(), u"2026-05-05T09:00:00Z"_s);
}

TEST_F(DateTimeEntryTest, keepsWhatWasEnteredInAnotherTimeZone)
{
    type(0, u"1/2/2027 9:15"_s);
    entry.settle();

    world.region.setZone("America/New_York");
    tick();

    EXPECT_EQ(shown(), u"01/02/2027 09:15"_s);
    EXPECT_EQ(saved(), u"2027-02-01T14:15:00Z"_s);
    EXPECT_EQ(shown(), u"01/02/2027 09:15"_s);
}

TEST_F(DateTimeEntryTest, isADayAheadInAnotherTimeZoneWhileItIsUntouched)
{
    type(0, u"./"_s);
    world.region.setZone("Asia/Tokyo");
    EXPECT_EQ(shown(), u"05/05/2026 09:05"_s);

    tick();

    EXPECT_EQ(shown(), u"05/05/2026 17:05"_s);
    EXPECT_EQ(saved(), u"2026-05-05T08:05:08Z"_s);
}

TEST_F(DateTimeEntryTest, savesWhatItShowsRightAfterTheTimeZoneChanged)
{
    world.region.setZone("Asia/Tokyo");

    EXPECT_EQ(saved(), u"2026-05-05T08:05:07Z"_s);
    EXPECT_EQ(shown(), u"05/05/2026 17:05"_s);
}

TEST_F(DateTimeEntryTest, isTouchedByTypingWhatStandsThere)
{
    type(0, u"5"_s);
    world.region.setZone("Asia/Tokyo");
    tick();

    EXPECT_EQ(shown(), u"05/05/2026 09:05"_s);
    EXPECT_EQ(saved(), u"2026-05-05T00:05:00Z"_s);
}

TEST_F(DateTimeEntryTest, showsWhatATimeThatDoesNotExistBecomes)
{
    moveTo("de_DE", "Europe/Berlin", u"2026-03-28T09:00:00Z"_s);

    type(3, u"0230"_s);
    entry.settle();

    EXPECT_EQ(shown(), u"29.03.2026 03:30"_s);
}

TEST_F(DateTimeEntryTest, isNowWhereTodayIsChosenAndItsTimeIsPast)
{
    type(3, u"0800"_s);
    entry.toggleCalendar();

    entry.calendar()->choose(entry.calendar()->cursorRow() - 1);

    EXPECT_EQ(shown(), u"04/05/2026 09:05"_s);
}

const QString movedToNow = u"That moment is past: it was moved to now."_s;
const QString movedToNearest = u"That cannot be: it was moved to the nearest moment."_s;

TEST_F(DateTimeEntryTest, saysThatAPastMomentWasMovedToNow)
{
    type(0, u"0105"_s);
    EXPECT_EQ(entry.note(), QString());

    entry.settle();
    EXPECT_EQ(entry.note(), movedToNow);
    entry.settle();
    entry.leave();

    EXPECT_EQ(entry.note(), movedToNow);
}

TEST_F(DateTimeEntryTest, saysThatAMomentPassedMeanwhile)
{
    type(0, u"04"_s);
    entry.settle();
    EXPECT_EQ(entry.note(), QString());
    world.clock.advance(300);

    saved();

    EXPECT_EQ(entry.note(), movedToNow);
}

TEST_F(DateTimeEntryTest, saysThatWhatCannotBeWasMoved)
{
    moveTo("de_DE", "Europe/Berlin", u"2026-03-01T09:00:00Z"_s);
    for (const QString &letters :
        { u"31.6.2027 9:15"_s, u"1.6.2027 9:60"_s, u"1.13.2027 9:15"_s, u"29.3.2026 2:30"_s }) {
        entry.reset();
        type(0, letters);
        EXPECT_EQ(entry.note(), QString()) << qPrintable(letters);

        entry.settle();

        EXPECT_EQ(entry.note(), movedToNearest) << qPrintable(letters);
    }
}

TEST_F(DateTimeEntryTest, saysNothingOfAMomentThatCanBe)
{
    for (const QString &letters : { u"1/2/2027 9:15"_s, u"31/1/27 24:00"_s, u"4/5/2026 9:05"_s }) {
        type(0, letters);
        entry.settle();

        EXPECT_EQ(entry.note(), QString()) << qPrintable(letters);
    }
}

TEST_F(DateTimeEntryTest, saysNothingMoreOnceSomethingElseIsEntered)
{
    const std::function<void()> entries[] = { [this] { type(0, u"2"_s); }, [this] { entry.step(0, 1); },
        [this] { entry.setNumber(0, 9); }, [this] { entry.begin(instantAt(u"2026-05-01T07:00:00Z"_s)); } };
    for (const auto &enter : entries) {
        entry.reset();
        type(0, u"0105"_s);
        entry.settle();
        ASSERT_EQ(entry.note(), movedToNow);

        enter();

        EXPECT_EQ(entry.note(), QString());
    }
}

TEST_F(DateTimeEntryTest, saysNothingOfAFieldThatWasMendedAfterwards)
{
    type(0, u"1/13/"_s);
    entry.setNumber(1, 11);
    entry.settle();
    EXPECT_EQ(entry.note(), QString());

    type(0, u"1/13/"_s);
    entry.step(1, -1);
    entry.settle();

    EXPECT_EQ(entry.note(), QString());
    EXPECT_EQ(shown(), u"01/11/2026 09:05"_s);
}

} // namespace
} // namespace glimmet
