#include "tests/ui/editors/DateTimeEntryWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;

TEST_F(DateTimeEntryTest, beginsOneDayAheadToTheSecond)
{
    EXPECT_EQ(shown(), u"05/05/2026 09:05"_s);
    EXPECT_EQ(saved(), u"2026-05-05T08:05:07Z"_s);
}

TEST_F(DateTimeEntryTest, beginsWithAGivenMomentAndKeepsItWhileNothingIsChanged)
{
    entry.begin(instantAt(u"2026-05-09T17:30:45Z"_s));
    EXPECT_EQ(shown(), u"09/05/2026 18:30"_s);
    entry.settle();
    EXPECT_EQ(saved(), u"2026-05-09T17:30:45Z"_s);

    entry.step(0, 1);

    EXPECT_EQ(saved(), u"2026-05-10T17:30:00Z"_s);
}

TEST_F(DateTimeEntryTest, beginsAnewAfterAGivenMoment)
{
    entry.begin(instantAt(u"2026-05-01T07:00:00Z"_s));

    entry.reset();

    EXPECT_EQ(saved(), u"2026-05-05T08:05:07Z"_s);
}

TEST_F(DateTimeEntryTest, standsAsTheLocaleWritesIt)
{
    const QString now = u"2026-05-04T20:05:07Z"_s;

    moveTo("en_US", "UTC", now);
    EXPECT_EQ(shown(), u"05/05/2026 8:05\u202FPM"_s);
    moveTo("de_DE", "UTC", now);
    EXPECT_EQ(shown(), u"05.05.2026 20:05"_s);
    moveTo("ar_EG", "UTC", now);
    EXPECT_EQ(shown(), u"م ٨:٠٥ ٢٠٢٦/٠٥/٠٥"_s);
}

TEST_F(DateTimeEntryTest, namesItsFieldsAndTheirRanges)
{
    moveTo("en_US", "UTC", u"2026-05-04T20:05:07Z"_s);
    QStringList names;
    QList<int> highest;
    for (int i = 0; i < entry.rowCount(); ++i) {
        names.append(entry.index(i).data(DateTimeEntry::NameRole).toString());
        highest.append(entry.index(i).data(DateTimeEntry::HighestRole).toInt());
    }

    EXPECT_THAT(names,
        ElementsAre(u"Due date, month", u"Due date, day", u"Due date, year", u"Due date, hour",
            u"Due date, minute", u"Due date, AM or PM"));
    EXPECT_THAT(highest, ElementsAre(12, 31, 9999, 12, 59, 1));
    EXPECT_EQ(entry.index(2).data(DateTimeEntry::LowestRole), 2026);
}

TEST_F(DateTimeEntryTest, followsTheDayInItsOpenCalendar)
{
    const auto todays = [this] {
        QStringList labels;
        for (int row = 0; row < entry.calendar()->rowCount(); ++row) {
            const QModelIndex day = entry.calendar()->index(row);
            if (day.data(CalendarMonth::IsTodayRole).toBool())
                labels.append(day.data(CalendarMonth::LabelRole).toString());
        }
        return labels;
    };
    entry.toggleCalendar();
    EXPECT_THAT(todays(), ElementsAre(u"4"_s));

    world.region.setZone("Pacific/Kiritimati");
    world.clock.advance(3600);
    tick();
    EXPECT_THAT(todays(), ElementsAre(u"4"_s));
    world.clock.advance(3600);
    tick();

    EXPECT_THAT(todays(), ElementsAre(u"5"_s));
}

TEST_F(DateTimeEntryTest, takesANumberAsAssistiveProgramsSetIt)
{
    entry.setNumber(0, 20);
    entry.setNumber(3, 99);

    EXPECT_EQ(shown(), u"20/05/2026 23:05"_s);
}

TEST_F(DateTimeEntryTest, takesTheDayFromItsCalendarAndKeepsTheTime)
{
    entry.toggleCalendar();
    ASSERT_TRUE(entry.calendar()->isOpen());

    entry.calendar()->choose(entry.calendar()->cursorRow() + 7);

    EXPECT_FALSE(entry.calendar()->isOpen());
    EXPECT_EQ(saved(), u"2026-05-12T08:05:00Z"_s);
}

TEST_F(DateTimeEntryTest, showsTheEnteredDayInItsOpenCalendar)
{
    entry.toggleCalendar();

    entry.step(1, 1);
    entry.step(0, 2);

    const CalendarMonth &calendar = *entry.calendar();
    const QModelIndex shownDay = calendar.index(calendar.cursorRow());
    EXPECT_EQ(calendar.title(), u"June 2026"_s);
    EXPECT_EQ(shownDay.data(CalendarMonth::LabelRole).toString(), u"7"_s);
    EXPECT_TRUE(shownDay.data(CalendarMonth::IsChosenRole).toBool());
}

TEST_F(DateTimeEntryTest, leavesItsCalendarWhereItIsWhileTheTimeIsEntered)
{
    entry.toggleCalendar();
    entry.calendar()->showMonths(1);

    entry.step(3, 1);

    EXPECT_EQ(entry.calendar()->title(), u"June 2026"_s);
}

TEST_F(DateTimeEntryTest, closesItsCalendarWhenItIsLeftOrBegunAnew)
{
    entry.toggleCalendar();
    entry.leave();
    EXPECT_FALSE(entry.calendar()->isOpen());

    entry.toggleCalendar();
    entry.reset();
    EXPECT_FALSE(entry.calendar()->isOpen());

    entry.toggleCalendar();
    entry.toggleCalendar();
    EXPECT_FALSE(entry.calendar()->isOpen());
}

} // namespace
} // namespace glimmet
