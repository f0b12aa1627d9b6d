#include "ui/editors/CalendarMonth.h"

#include "tests/support/Printing.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

/// Friday 2026-05-15 is chosen, Sunday 2026-05-10 is today, and weeks begin on Monday.
class CalendarMonthTest : public testing::Test {
protected:
    CalendarMonthTest() { month.open(QDate(2026, 5, 15), QDate(2026, 5, 10), "en_GB"); }

    QString cursor() const { return at(month.cursorRow(), CalendarMonth::NameRole).toString(); }
    QVariant at(int row, CalendarMonth::Role role) const { return month.index(row).data(role); }
    /// The labels of the days for which `role` holds.
    QStringList days(CalendarMonth::Role role) const
    {
        QStringList labels;
        for (int row = 0; row < month.rowCount(); ++row) {
            if (at(row, role).toBool())
                labels.append(at(row, CalendarMonth::LabelRole).toString());
        }
        return labels;
    }

    CalendarMonth month;
    QAbstractItemModelTester tester{ &month, QAbstractItemModelTester::FailureReportingMode::Fatal };
};

DateTimeConventions weeks(Qt::DayOfWeek first)
{
    DateTimeConventions conventions;
    conventions.firstDayOfWeek = first;
    return conventions;
}

TEST(CalendarKeys, moveByDayWeekAndMonth)
{
    const auto moved = [](int key) { return movedByKey(key, QDate(2026, 5, 31), weeks(Qt::Monday)); };

    EXPECT_EQ(moved(Qt::Key_Left), QDate(2026, 5, 30));
    EXPECT_EQ(moved(Qt::Key_Right), QDate(2026, 6, 1));
    EXPECT_EQ(moved(Qt::Key_Up), QDate(2026, 5, 24));
    EXPECT_EQ(moved(Qt::Key_Down), QDate(2026, 6, 7));
    EXPECT_EQ(moved(Qt::Key_PageUp), QDate(2026, 4, 30));
    EXPECT_EQ(moved(Qt::Key_PageDown), QDate(2026, 6, 30));
    EXPECT_EQ(moved(Qt::Key_A), QDate(2026, 5, 31));
}

TEST(CalendarKeys, moveToTheEndsOfTheLocalesWeek)
{
    EXPECT_EQ(movedByKey(Qt::Key_Home, QDate(2026, 5, 13), weeks(Qt::Monday)), QDate(2026, 5, 11));
    EXPECT_EQ(movedByKey(Qt::Key_End, QDate(2026, 5, 13), weeks(Qt::Monday)), QDate(2026, 5, 17));
    EXPECT_EQ(movedByKey(Qt::Key_Home, QDate(2026, 5, 13), weeks(Qt::Sunday)), QDate(2026, 5, 10));
    EXPECT_EQ(movedByKey(Qt::Key_End, QDate(2026, 5, 13), weeks(Qt::Sunday)), QDate(2026, 5, 16));
}

TEST(CalendarKeys, moveAsTheEyeSeesWhereWeeksRunFromRightToLeft)
{
    for (const char *locale : { "ar_EG", "he_IL", "fa_IR" }) {
        const auto moved = [&](int key) {
            return movedByKey(key, QDate(2026, 5, 13), dateTimeConventions(locale));
        };
        EXPECT_EQ(moved(Qt::Key_Left), QDate(2026, 5, 14)) << locale;
        EXPECT_EQ(moved(Qt::Key_Right), QDate(2026, 5, 12)) << locale;
        EXPECT_EQ(moved(Qt::Key_Down), QDate(2026, 5, 20)) << locale;
        EXPECT_EQ(moved(Qt::Key_PageDown), QDate(2026, 6, 13)) << locale;
        EXPECT_LT(moved(Qt::Key_Home), moved(Qt::Key_End)) << locale;
    }
}

TEST_F(CalendarMonthTest, opensOnTheChosenDay)
{
    EXPECT_TRUE(month.isOpen());
    EXPECT_EQ(month.title(), u"May 2026"_s);
    EXPECT_EQ(month.weekdays().first(), u"Mo"_s);
    EXPECT_EQ(cursor(), u"Friday, 15 May 2026"_s);
    EXPECT_THAT(days(CalendarMonth::IsChosenRole), ElementsAre(u"15"_s));
    EXPECT_THAT(days(CalendarMonth::IsTodayRole), ElementsAre(u"10"_s));
    EXPECT_EQ(days(CalendarMonth::IsInMonthRole).size(), 31);
}

TEST_F(CalendarMonthTest, offersNothingBeforeToday)
{
    EXPECT_EQ(days(CalendarMonth::IsOfferedRole).first(), u"10"_s);
    EXPECT_EQ(days(CalendarMonth::IsOfferedRole).size(), 22 + 7);
}

TEST_F(CalendarMonthTest, keepsTheCursorFromThePast)
{
    month.pressKey(Qt::Key_Up);
    EXPECT_EQ(cursor(), u"Sunday, 10 May 2026"_s);
    month.pressKey(Qt::Key_Left);
    EXPECT_EQ(cursor(), u"Sunday, 10 May 2026"_s);
    month.pressKey(Qt::Key_PageUp);
    EXPECT_EQ(cursor(), u"Sunday, 10 May 2026"_s);
}

TEST_F(CalendarMonthTest, followsTheDayThatItIs)
{
    month.setToday(QDate(2026, 5, 12));

    EXPECT_THAT(days(CalendarMonth::IsTodayRole), ElementsAre(u"12"_s));
    EXPECT_EQ(days(CalendarMonth::IsOfferedRole).first(), u"12"_s);
    EXPECT_EQ(cursor(), u"Friday, 15 May 2026"_s);

    month.setToday(QDate(2026, 5, 9));

    EXPECT_THAT(days(CalendarMonth::IsTodayRole), ElementsAre(u"9"_s));
}

TEST_F(CalendarMonthTest, takesTheCursorOffADayBeforeItIsPast)
{
    QStringList offered;
    QObject::connect(&month, &CalendarMonth::dayPassed, &month,
        [&] { offered = days(CalendarMonth::IsOfferedRole) + QStringList{ cursor() }; });

    month.setToday(QDate(2026, 5, 16));

    ASSERT_FALSE(offered.isEmpty());
    EXPECT_EQ(offered.first(), u"10"_s);
    EXPECT_EQ(offered.last(), u"Saturday, 16 May 2026"_s);
    EXPECT_EQ(days(CalendarMonth::IsOfferedRole).first(), u"16"_s);
}

TEST_F(CalendarMonthTest, turnsThePageWithTheCursorAndKeepsItsRows)
{
    const QSignalSpy resets(&month, &CalendarMonth::modelReset);

    EXPECT_TRUE(month.pressKey(Qt::Key_PageDown));

    EXPECT_EQ(month.title(), u"June 2026"_s);
    EXPECT_EQ(cursor(), u"Monday, 15 June 2026"_s);
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(month.rowCount(), 42);
}

TEST_F(CalendarMonthTest, leavesOtherKeysToOthers)
{
    EXPECT_FALSE(month.pressKey(Qt::Key_Escape));
    EXPECT_FALSE(month.pressKey(Qt::Key_Return));
    EXPECT_EQ(cursor(), u"Friday, 15 May 2026"_s);
}

TEST_F(CalendarMonthTest, goesBackToTheMonthOfToday)
{
    EXPECT_FALSE(month.canGoBack());
    month.showMonths(1);
    EXPECT_TRUE(month.canGoBack());

    month.showMonths(-1);

    EXPECT_EQ(month.title(), u"May 2026"_s);
    EXPECT_FALSE(month.canGoBack());
}

TEST_F(CalendarMonthTest, endsWithTheChosenDay)
{
    QSignalSpy chosen(&month, &CalendarMonth::dayChosen);

    month.choose(month.cursorRow() + 1);

    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.first().first().toDate(), QDate(2026, 5, 16));
    EXPECT_FALSE(month.isOpen());
}

TEST_F(CalendarMonthTest, refusesADayThatItDoesNotOffer)
{
    const QSignalSpy chosen(&month, &CalendarMonth::dayChosen);

    month.choose(0);
    month.choose(-1);
    month.choose(42);

    EXPECT_EQ(chosen.count(), 0);
    EXPECT_TRUE(month.isOpen());
}

TEST_F(CalendarMonthTest, endsWithTheYearsThatADateHas)
{
    month.open(QDate(9999, 12, 31), QDate(2026, 5, 10), "en_GB");

    month.pressKey(Qt::Key_Down);

    EXPECT_EQ(cursor(), u"Friday, 31 December 9999"_s);
    EXPECT_EQ(days(CalendarMonth::IsOfferedRole).last(), u"31"_s);
}

TEST(MonthGrid, beginsWithTheWeekOfTheFirstDay)
{
    const QList<QDate> days = monthGrid(QDate(2026, 5, 17), Qt::Monday);

    ASSERT_EQ(days.size(), 42);
    EXPECT_EQ(days.first(), QDate(2026, 4, 27));
    EXPECT_EQ(days.at(4), QDate(2026, 5, 1));
    EXPECT_EQ(days.last(), QDate(2026, 6, 7));
}

TEST(MonthGrid, beginsWithAnyDayOfTheWeek)
{
    EXPECT_EQ(monthGrid(QDate(2026, 5, 1), Qt::Sunday).first(), QDate(2026, 4, 26));
    EXPECT_EQ(monthGrid(QDate(2026, 5, 1), Qt::Saturday).first(), QDate(2026, 4, 25));
    EXPECT_EQ(monthGrid(QDate(2026, 5, 1), Qt::Friday).first(), QDate(2026, 5, 1));
}

TEST(MonthGrid, holdsEveryDayOfItsMonth)
{
    for (QDate month(2026, 1, 1); month.year() < 2030; month = month.addMonths(1)) {
        for (int first = Qt::Monday; first <= Qt::Sunday; ++first) {
            const QList<QDate> days = monthGrid(month, static_cast<Qt::DayOfWeek>(first));
            ASSERT_TRUE(days.indexOf(month) >= 0 && days.indexOf(month) < 7);
            ASSERT_TRUE(days.contains(month.addMonths(1).addDays(-1)));
            ASSERT_EQ(days.first().dayOfWeek(), first);
        }
    }
}

} // namespace
} // namespace glimmet
