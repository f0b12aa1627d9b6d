#pragma once

#include "tests/support/TestWorld.h"
#include "ui/editors/DateTimeEntry.h"

#include <QAbstractItemModelTester>
#include <QDateTime>

namespace glimmet {

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

} // namespace glimmet
