#include "ui/editors/DateTimeEntry.h"

#include "tests/support/TestWorld.h"
#include "ui/editors/DeadlineForm.h"

#include <QAbstractItemModelTester>
#include <QDateTime>

namespace glimmet {
namespace {

using testing::ElementsAre;

/// An entry in London on 2026-05-04 09:05:07, a Monday, unless the test moves it.
class DateTimeEntryTest : public TickerTest {
protected:
    DateTimeEntryTest() { entry.setTicker(&ticker); }

    void moveTo(const char *locale, const char *zone, const QString &now)
    {
        world.region.setLocale(locale);
        world.region.setZone(zone);
        world.clock.set(instantAt(now));
        entry.reset();
    }
    QString shown() const
    {
        QString text;
        for (int i = 0; i < entry.rowCount(); ++i) {
            const QModelIndex index = entry.index(i);
            text += index.data(DateTimeEntry::StartsTimeRole).toBool() ? u" "_s : QString();
            text += index.data(DateTimeEntry::TextRole).toString()
                + index.data(DateTimeEntry::SeparatorRole).toString();
        }
        return text;
    }
    QString saved()
    {
        const auto milliseconds = static_cast<qint64>(entry.settledMoment().unixMilliseconds());
        return QDateTime::fromMSecsSinceEpoch(milliseconds).toUTC().toString(Qt::ISODate);
    }
    /// Types into a field, going along where the entry moves on; the row with the keyboard in the end.
    int type(int row, const QString &letters)
    {
        for (const QChar letter : letters)
            row = entry.pressKey(row, Qt::Key_unknown, QString(letter));
        return row;
    }

    DateTimeEntry entry;
    QAbstractItemModelTester tester{ &entry, QAbstractItemModelTester::FailureReportingMode::Fatal };
};

TEST_F(DateTimeEntryTest, beginsOneDayAheadToTheSecond)
{
    EXPECT_EQ(shown(), u"05/05/2026 09:05"_s);
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
    EXPECT_EQ(shown(), u"٢٠٢٦/٠٥/٠٥ م ٨:٠٥"_s);
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

TEST_F(DateTimeEntryTest, takesDigitsAndMovesOn)
{
    const int row = type(0, u"31122027235"_s);

    EXPECT_EQ(shown(), u"31/12/2027 23:5"_s);
    EXPECT_EQ(row, 4);
    type(row, u"9"_s);
    EXPECT_EQ(saved(), u"2027-12-31T23:59:00Z"_s);
}

TEST_F(DateTimeEntryTest, movesOnWhereNoDigitCanFollow)
{
    EXPECT_EQ(type(0, u"7"_s), 1);
    EXPECT_EQ(type(1, u"1"_s), 1);
    EXPECT_EQ(type(1, u"1"_s), 2);
    EXPECT_EQ(shown(), u"07/11/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, takesDigitsOfTheLocale)
{
    moveTo("fa_IR", "UTC", u"2026-05-04T20:05:07Z"_s);

    type(0, u"۲۰۲۷"_s);

    EXPECT_EQ(shown(), u"۲۰۲۷/۰۵/۰۵ ۲۰:۰۵"_s);
}

TEST_F(DateTimeEntryTest, takesAHalfTypedNumberWhenTheKeyboardLeaves)
{
    type(1, u"1"_s);
    EXPECT_EQ(shown(), u"05/1/2026 09:05"_s);

    entry.finish(1);

    EXPECT_EQ(shown(), u"05/01/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, takesAYearOfTwoDigits)
{
    type(2, u"28"_s);

    entry.finish(2);

    EXPECT_EQ(shown(), u"05/05/2028 09:05"_s);
}

TEST_F(DateTimeEntryTest, forgetsAHalfTypedNumberByBackspace)
{
    type(1, u"1"_s);

    EXPECT_EQ(entry.pressKey(1, Qt::Key_Backspace, u"\b"_s), 1);

    EXPECT_EQ(shown(), u"05/05/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, stepsAndMovesByTheArrowKeys)
{
    EXPECT_EQ(entry.pressKey(0, Qt::Key_Up, {}), 0);
    EXPECT_EQ(entry.pressKey(4, Qt::Key_Down, {}), 4);
    EXPECT_EQ(shown(), u"06/05/2026 09:04"_s);

    EXPECT_EQ(entry.pressKey(0, Qt::Key_Left, {}), 0);
    EXPECT_EQ(entry.pressKey(0, Qt::Key_Right, {}), 1);
    EXPECT_EQ(entry.pressKey(4, Qt::Key_Right, {}), 4);
    EXPECT_EQ(entry.pressKey(4, Qt::Key_Left, {}), 3);
    EXPECT_EQ(entry.pressKey(2, Qt::Key_Home, {}), 0);
    EXPECT_EQ(entry.pressKey(2, Qt::Key_End, {}), 4);
}

TEST_F(DateTimeEntryTest, leavesOtherKeysToOthers)
{
    EXPECT_EQ(entry.pressKey(0, Qt::Key_Tab, u"\t"_s), -1);
    EXPECT_EQ(entry.pressKey(0, Qt::Key_Escape, u"\x1b"_s), -1);
    EXPECT_EQ(entry.pressKey(0, Qt::Key_A, u"a"_s), -1);
    EXPECT_EQ(shown(), u"05/05/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, takesTheDayPeriodByItsLetter)
{
    moveTo("en_US", "UTC", u"2026-05-04T20:05:07Z"_s);

    EXPECT_EQ(entry.pressKey(5, Qt::Key_A, u"a"_s), 5);
    EXPECT_EQ(shown(), u"05/05/2026 8:05\u202FAM"_s);
    EXPECT_EQ(entry.pressKey(5, Qt::Key_X, u"x"_s), -1);
    entry.step(5, 1);
    EXPECT_EQ(shown(), u"05/05/2026 8:05\u202FPM"_s);
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

TEST_F(DateTimeEntryTest, showsWhatATimeThatDoesNotExistBecomes)
{
    moveTo("de_DE", "Europe/Berlin", u"2026-03-28T09:00:00Z"_s);

    type(3, u"0230"_s);
    entry.settle();

    EXPECT_EQ(shown(), u"29.03.2026 03:30"_s);
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

TEST_F(DateTimeEntryTest, isNowWhereTodayIsChosenAndItsTimeIsPast)
{
    type(3, u"0800"_s);
    entry.toggleCalendar();

    entry.calendar()->choose(entry.calendar()->cursorRow() - 1);

    EXPECT_EQ(shown(), u"04/05/2026 09:05"_s);
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

class DeadlineFormTest : public TickerTest {
protected:
    DeadlineFormTest() { form.setTicker(&ticker); }

    DeadlineForm form;
};

TEST_F(DeadlineFormTest, addsOnlyWhatHasATitle)
{
    for (const QString &title : { u""_s, u"   "_s, u"\t\u3000"_s }) {
        form.setTitle(title);
        EXPECT_FALSE(form.canAdd());
        form.add();
        EXPECT_EQ(form.title(), title);
    }
    EXPECT_TRUE(ticker.deadlines().isEmpty());
}

TEST_F(DeadlineFormTest, addsTheTrimmedTitleWithItsDateAndBeginsAnew)
{
    form.setTitle(u"  Math Exam "_s);
    EXPECT_TRUE(form.canAdd());
    form.date()->setNumber(0, 20);

    form.add();

    ASSERT_EQ(ticker.deadlines().size(), 1);
    EXPECT_EQ(ticker.deadlines().first().title, u"Math Exam"_s);
    EXPECT_EQ(ticker.deadlines().first().date, instantAt(u"2026-05-20T08:05:00Z"_s));
    EXPECT_EQ(form.title(), QString());
    EXPECT_FALSE(form.canAdd());
    EXPECT_EQ(form.date()->settledMoment(), world.clock.now().advanced(86400));
}

} // namespace
} // namespace glimmet
