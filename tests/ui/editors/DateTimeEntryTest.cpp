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
    QVariant at(int row, DateTimeEntry::Role role) const { return entry.index(row).data(role); }
    /// The row that stands to the right of another; the left end's for -1.
    int rightOf(int row) const
    {
        for (int i = 0; i < entry.rowCount(); ++i) {
            if (at(i, DateTimeEntry::LeftRowRole) == row)
                return i;
        }
        return -1;
    }
    /// The line from left to right.
    QString shown() const
    {
        QString text;
        for (int row = rightOf(-1); row >= 0; row = rightOf(row)) {
            text += at(row, DateTimeEntry::FollowsGapRole).toBool() ? u" "_s : QString();
            text += at(row, DateTimeEntry::TextRole).toString()
                + at(row, DateTimeEntry::SeparatorRole).toString();
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

TEST_F(DateTimeEntryTest, beginsWithAGivenMomentAndKeepsItWhileNothingIsChanged)
{
    entry.begin(instantAt(u"2026-05-09T17:30:45Z"_s));
    EXPECT_EQ(shown(), u"09/05/2026 18:30"_s);
    entry.settle();
    EXPECT_EQ(saved(), u"2026-05-09T17:30:45Z"_s);

    entry.step(0, 1);

    EXPECT_EQ(saved(), u"2026-05-10T17:30:00Z"_s);
}

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

    EXPECT_EQ(shown(), u"۲۰:۰۵ ۲۰۲۷/۰۵/۰۵"_s);
}

TEST_F(DateTimeEntryTest, takesADateAndTimeAsPeopleWriteIt)
{
    moveTo("de_DE", "Europe/Berlin", u"2026-05-04T20:05:07Z"_s);

    const int row = type(0, u"1.2.2027 9:15"_s);

    EXPECT_EQ(row, 4);
    EXPECT_EQ(shown(), u"01.02.2027 09:15"_s);
    EXPECT_EQ(saved(), u"2027-02-01T08:15:00Z"_s);
}

TEST_F(DateTimeEntryTest, takesATimeFromTheHourOn)
{
    EXPECT_EQ(type(3, u"1:30"_s), 4);
    EXPECT_EQ(shown(), u"05/05/2026 01:30"_s);

    moveTo("en_US", "UTC", u"2026-05-04T20:05:07Z"_s);
    EXPECT_EQ(type(3, u"1:30"_s), 5);
    EXPECT_EQ(shown(), u"05/05/2026 1:30\u202FPM"_s);
}

// What is saved is what stands there, whatever was typed.
TEST_F(DateTimeEntryTest, savesWhatItShows)
{
    moveTo("de_DE", "UTC", u"2026-05-04T20:05:07Z"_s);
    for (const QString &letters : { u"1.2.2027 9:15"_s, u"31.2.27 9:5"_s, u"99.99.9999 99:99"_s,
             u"0.0.0 0:0"_s, u"1.2.202 9"_s, u"5/6-28,,23:59:59 Uhr"_s, u"1:30"_s, u"2"_s, u"..."_s }) {
        entry.reset();
        type(0, letters);

        const auto moment = QDateTime::fromString(saved(), Qt::ISODate);

        EXPECT_EQ(shown(), moment.toString(u"dd.MM.yyyy HH:mm"_s)) << qPrintable(letters);
    }
}

TEST_F(DateTimeEntryTest, takesAHalfTypedNumberWhenAnotherFieldIsEntered)
{
    type(0, u"2"_s);
    type(3, u"1"_s);
    entry.setNumber(4, 9);

    EXPECT_EQ(shown(), u"02/05/2026 01:09"_s);
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

// "م ٨:٠٥ ٢٠٢٦/٠٥/٠٥" is read from the right: day, month, year, hour, minute, day period.
TEST_F(DateTimeEntryTest, movesByTheArrowKeysAsTheEyeSees)
{
    moveTo("ar_EG", "UTC", u"2026-05-04T20:05:07Z"_s);

    QList<int> rows{ 5 };
    for (int i = 0; i < 6; ++i)
        rows.append(entry.pressKey(rows.last(), Qt::Key_Right, {}));

    EXPECT_THAT(rows, ElementsAre(5, 3, 4, 2, 1, 0, 0));
    EXPECT_EQ(entry.pressKey(0, Qt::Key_Left, {}), 1);
    EXPECT_EQ(entry.pressKey(5, Qt::Key_Left, {}), 5);
    EXPECT_EQ(entry.pressKey(3, Qt::Key_Home, {}), 0);
    EXPECT_EQ(entry.pressKey(3, Qt::Key_End, {}), 5);
}

TEST_F(DateTimeEntryTest, hasTheFieldsInTheOrderInWhichTheyAreRead)
{
    struct Line {
        const char *locale;
        QString shown;
        QString typed;
    };
    for (const auto &[locale, line, letters] : {
             Line{ "en_US", u"02/01/2027 9:15\u202FPM"_s, u"2/1/2027 9:15"_s },
             Line{ "en_US_POSIX", u"02/01/2027 9:15\u202FPM"_s, u"2/1/2027 9:15 p"_s },
             Line{ "en_GB", u"01/02/2027 09:15"_s, u"1/2/2027 9:15"_s },
             Line{ "de_DE", u"01.02.2027 09:15"_s, u"1.2.2027 9:15"_s },
             Line{ "ko_KR", u"2027. 02. 01. 오전 9:15"_s, u"2027. 2. 1. a 9:15"_s },
             Line{ "zh_TW", u"2027/02/01 上午9:15"_s, u"2027/2/1 a9:15"_s },
             Line{ "ja_JP", u"2027/02/01 9:15"_s, u"2027/2/1 9:15"_s },
             Line{ "ar_EG", u"ص ٩:١٥ ٢٠٢٧/٠٢/٠١"_s, u"1/2/2027 9:15 ص"_s },
             Line{ "he_IL", u"9:15 01.02.2027"_s, u"1.2.2027 9:15"_s },
             Line{ "fa_IR", u"۹:۱۵ ۲۰۲۷/۰۲/۰۱"_s, u"2027/2/1 9:15"_s },
         }) {
        moveTo(locale, "UTC", u"2026-05-04T20:05:07Z"_s);

        type(0, letters);

        EXPECT_EQ(shown(), line) << locale;
    }
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

TEST_F(DeadlineFormTest, savesADeadlineThatThereIs)
{
    ticker.addDeadline(u"Math Exam"_s, world.clock.now().advanced(300));
    const Deadline before = ticker.deadlines().first();
    form.begin(before.id.toString(QUuid::WithoutBraces));
    EXPECT_EQ(form.title(), u"Math Exam"_s);

    form.save();
    EXPECT_EQ(ticker.deadlines(), QList<Deadline>{ before });
    form.setTitle(u" Physics Exam "_s);
    form.date()->setNumber(0, 20);
    form.save();

    EXPECT_THAT(ticker.deadlines(),
        ElementsAre(Deadline{ before.id, u"Physics Exam"_s, instantAt(u"2026-05-20T08:10:00Z"_s) }));
}

} // namespace
} // namespace glimmet
