#include "tests/ui/editors/DateTimeEntryWorld.h"

namespace glimmet {
namespace {

using testing::ElementsAre;

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

TEST_F(DateTimeEntryTest, takesAMonthByItsNameInTheLocalesLanguageAndInEnglish)
{
    moveTo("de_DE", "UTC", u"2026-05-04T20:05:07Z"_s);

    EXPECT_EQ(type(0, u"24. Dezember 2027 9:15"_s), 4);
    EXPECT_EQ(shown(), u"24.12.2027 09:15"_s);
    EXPECT_EQ(type(0, u"Oct 3, 2027 "_s), 3);
    EXPECT_EQ(shown(), u"03.10.2027 09:15"_s);
}

TEST_F(DateTimeEntryTest, showsTheMonthThatTheLettersNameAndThemWhileThatIsOpen)
{
    EXPECT_EQ(type(0, u"24J"_s), 1);
    EXPECT_EQ(shown(), u"24/J/2026 09:05"_s);
    type(1, u"ul"_s);
    EXPECT_EQ(shown(), u"24/07/2026 09:05"_s);

    EXPECT_EQ(entry.pressKey(1, Qt::Key_Backspace, u"\b"_s), 1);

    EXPECT_EQ(shown(), u"24/05/2026 09:05"_s);
}

TEST_F(DateTimeEntryTest, takesAMonthWhenTheKeyboardLeaves)
{
    type(1, u"Dec"_s);

    entry.finish(1);

    EXPECT_EQ(saved(), u"2026-12-05T09:05:00Z"_s);
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
    EXPECT_EQ(entry.pressKey(0, Qt::Key_X, u"x"_s), -1);
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

} // namespace
} // namespace glimmet
