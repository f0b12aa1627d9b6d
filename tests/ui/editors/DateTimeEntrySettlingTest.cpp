#include "tests/ui/editors/DateTimeEntryWorld.h"

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

TEST_F(DateTimeEntryTest, isSettledByReturn)
{
    type(0, u"0105"_s);

    EXPECT_EQ(entry.pressKey(2, Qt::Key_Return, u"\r"_s), 2);

    EXPECT_EQ(shown(), u"04/05/2026 09:05"_s);
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

} // namespace
} // namespace glimmet
