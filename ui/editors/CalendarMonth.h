#pragma once

#include "platform/DateTimeConventions.h"

#include <QAbstractListModel>
#include <QDate>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// Where a key moves the cursor of a calendar: by a day, a week or a month, or to an end of the week. The
/// same day where the key moves nothing. Where weeks run from right to left the next day is at the left.
QDate movedByKey(int key, QDate from, const DateTimeConventions &conventions);

/// The six weeks that show the month of `date`: 42 days from the first day of a week on, the month's first
/// day among the first seven.
QList<QDate> monthGrid(QDate date, Qt::DayOfWeek firstDayOfWeek);

/// A month to choose a day from, in six weeks of seven days. Days before today cannot be chosen, and the
/// cursor, which the keyboard moves, does not go there.
class CalendarMonth : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("It belongs to an entry.")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged)
    Q_PROPERTY(QString title READ title NOTIFY moved)
    Q_PROPERTY(QStringList weekdays READ weekdays NOTIFY moved)
    /// Whether there are days to choose before this month.
    Q_PROPERTY(bool canGoBack READ canGoBack NOTIFY moved)
    Q_PROPERTY(int cursorRow READ cursorRow NOTIFY moved)
    /// Whether weeks run from right to left.
    Q_PROPERTY(bool isRightToLeft READ isRightToLeft NOTIFY moved)

public:
    enum Role {
        LabelRole = Qt::UserRole, ///< "label", the day's number
        NameRole, ///< "name", the day in words
        IsInMonthRole, ///< "isInMonth"
        IsOfferedRole, ///< "isOffered": it can be chosen
        IsTodayRole, ///< "isToday"
        IsChosenRole ///< "isChosen"
    };

    using QAbstractListModel::QAbstractListModel;

    bool isOpen() const { return m_isOpen; }
    QString title() const;
    QStringList weekdays() const { return m_conventions.weekdays; }
    bool canGoBack() const;
    int cursorRow() const;
    bool isRightToLeft() const { return m_conventions.isRightToLeft; }

    /// Shows the month of `chosen` and puts the cursor there.
    void open(QDate chosen, QDate today, const QByteArray &locale);
    /// Has another day be the chosen one, and shows its month.
    void setChosen(QDate chosen);
    /// Has another day be today: the next one, or that of another time zone.
    void setToday(QDate today);
    Q_INVOKABLE void close();
    Q_INVOKABLE void showMonths(int further);
    /// False where the key moves nothing.
    Q_INVOKABLE bool pressKey(int key);
    /// Ends with the day of that row, where it can be chosen.
    Q_INVOKABLE void choose(int row);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void isOpenChanged();
    void moved();
    /// The cursor has left a day that is about to be past.
    void dayPassed();
    void dayChosen(QDate date);

private:
    bool isOffered(QDate date) const { return date >= m_today && date.year() <= lastYear; }
    void moveTo(QDate date);

    static constexpr int lastYear = 9999;

    bool m_isOpen = false;
    QDate m_chosen;
    QDate m_today;
    QDate m_cursor;
    QByteArray m_locale;
    DateTimeConventions m_conventions;
    QList<QDate> m_days;
};

} // namespace glimmet
