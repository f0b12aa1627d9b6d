#include "ui/editors/CalendarMonth.h"

#include "platform/DateTimeText.h"

#include <algorithm>
#include <array>

namespace glimmet {

namespace {

constexpr int daysInWeek = 7;

QDate startOfWeek(QDate date, Qt::DayOfWeek first)
{
    return date.addDays(-((date.dayOfWeek() - first + daysInWeek) % daysInWeek));
}

bool isSameMonth(QDate one, QDate other)
{
    return one.year() == other.year() && one.month() == other.month();
}

} // namespace

QDate movedByKey(int key, QDate from, const DateTimeConventions &conventions)
{
    const int dayToTheRight = conventions.isRightToLeft ? -1 : 1;
    const QDate weekStart = startOfWeek(from, conventions.firstDayOfWeek);
    switch (key) {
    case Qt::Key_Left:
        return from.addDays(-dayToTheRight);
    case Qt::Key_Right:
        return from.addDays(dayToTheRight);
    case Qt::Key_Up:
        return from.addDays(-daysInWeek);
    case Qt::Key_Down:
        return from.addDays(daysInWeek);
    case Qt::Key_PageUp:
        return from.addMonths(-1);
    case Qt::Key_PageDown:
        return from.addMonths(1);
    case Qt::Key_Home:
        return weekStart;
    case Qt::Key_End:
        return weekStart.addDays(daysInWeek - 1);
    default:
        return from;
    }
}

QList<QDate> monthGrid(QDate date, Qt::DayOfWeek firstDayOfWeek)
{
    constexpr int weeks = 6;
    const QDate first = startOfWeek(QDate(date.year(), date.month(), 1), firstDayOfWeek);
    QList<QDate> days;
    for (int i = 0; i < weeks * daysInWeek; ++i)
        days.append(first.addDays(i));
    return days;
}

QString CalendarMonth::title() const
{
    return m_cursor.isValid() ? monthText(m_cursor, m_locale) : QString();
}

bool CalendarMonth::canGoBack() const
{
    return m_cursor.isValid() && m_today < QDate(m_cursor.year(), m_cursor.month(), 1);
}

int CalendarMonth::cursorRow() const
{
    return static_cast<int>(m_days.indexOf(m_cursor));
}

void CalendarMonth::open(QDate chosen, QDate today, const QByteArray &locale)
{
    m_locale = locale;
    m_conventions = dateTimeConventions(locale);
    m_chosen = chosen;
    m_today = today;
    moveTo(chosen);
    m_isOpen = true;
    emit isOpenChanged();
}

void CalendarMonth::setChosen(QDate chosen)
{
    if (!m_isOpen || chosen == m_chosen)
        return;
    m_chosen = chosen;
    moveTo(chosen);
}

void CalendarMonth::setToday(QDate today)
{
    if (!m_isOpen || today == m_today)
        return;
    // A day that is past cannot have the keyboard: the cursor leaves it first.
    if (m_cursor < today) {
        moveTo(today);
        emit dayPassed();
    }
    m_today = today;
    moveTo(m_cursor);
}

void CalendarMonth::close()
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    emit isOpenChanged();
}

void CalendarMonth::showMonths(int further)
{
    moveTo(m_cursor.addMonths(further));
}

bool CalendarMonth::pressKey(int key)
{
    constexpr std::array keys{ Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp,
        Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End };
    if (std::find(keys.begin(), keys.end(), key) == keys.end())
        return false;
    moveTo(movedByKey(key, m_cursor, m_conventions));
    return true;
}

void CalendarMonth::choose(int row)
{
    if (row < 0 || row >= m_days.size() || !isOffered(m_days.at(row)))
        return;
    emit dayChosen(m_days.at(row));
    close();
}

int CalendarMonth::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_days.size());
}

QVariant CalendarMonth::data(const QModelIndex &index, int role) const
{
    const QDate day = m_days.at(index.row());
    switch (role) {
    case LabelRole:
        return localizedNumber(day.day(), 1, m_conventions.zeroDigit);
    case NameRole:
        return fullDateText(day, m_locale);
    case IsInMonthRole:
        return isSameMonth(day, m_cursor);
    case IsOfferedRole:
        return isOffered(day);
    case IsTodayRole:
        return day == m_today;
    case IsChosenRole:
        return day == m_chosen;
    default:
        return {};
    }
}

QHash<int, QByteArray> CalendarMonth::roleNames() const
{
    return {
        { LabelRole, "label" },
        { NameRole, "name" },
        { IsInMonthRole, "isInMonth" },
        { IsOfferedRole, "isOffered" },
        { IsTodayRole, "isToday" },
        { IsChosenRole, "isChosen" },
    };
}

void CalendarMonth::moveTo(QDate date)
{
    m_cursor = std::clamp(date, m_today, QDate(lastYear, 12, 31));
    QList<QDate> days = monthGrid(m_cursor, m_conventions.firstDayOfWeek);
    // The rows stay the same ones, so that the keyboard and the screen reader stay where they are.
    if (m_days.isEmpty()) {
        beginInsertRows({}, 0, static_cast<int>(days.size()) - 1);
        m_days = std::move(days);
        endInsertRows();
    } else {
        m_days = std::move(days);
        emit dataChanged(index(0), index(static_cast<int>(m_days.size()) - 1));
    }
    emit moved();
}

} // namespace glimmet
