#include "ui/editors/DateTimeEntry.h"

#include "core/TickerViewModel.h"
#include "platform/UserRegion.h"
#include "ui/panel/Wording.h"

#include <algorithm>
#include <cmath>

namespace glimmet {

namespace {

constexpr double dayLength = 86400;

Instant startOfMinute(Instant moment)
{
    constexpr double minuteLength = 60;
    return { std::floor(moment.secondsSince2001 / minuteLength) * minuteLength };
}

/// Where a key moves the keyboard; nothing for a key that does not.
std::optional<int> rowByKey(int key, int row, int lastRow)
{
    switch (key) {
    case Qt::Key_Left:
        return std::max(row - 1, 0);
    case Qt::Key_Right:
        return std::min(row + 1, lastRow);
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return lastRow;
    default:
        return std::nullopt;
    }
}

} // namespace

DateTimeEntry::DateTimeEntry(QObject *parent)
    : QAbstractListModel(parent)
{
    connect(&m_calendar, &CalendarMonth::dayChosen, this, &DateTimeEntry::chooseDay);
}

void DateTimeEntry::setTicker(const TickerViewModel *ticker)
{
    if (m_ticker != nullptr)
        m_ticker->disconnect(this);
    m_ticker = ticker;
    if (m_ticker == nullptr)
        return;
    connect(m_ticker, &TickerViewModel::ticked, this, &DateTimeEntry::followClock);
    reset();
}

void DateTimeEntry::reset()
{
    takeConventions(dateTimeConventions(m_ticker->region().localeName()));
    m_typing.reset();
    m_calendar.close();
    setMoment(m_ticker->now().advanced(dayLength));
    m_isDefault = true;
}

/// The rows become new ones only where they must: the keyboard may be in one of them.
void DateTimeEntry::takeConventions(const DateTimeConventions &conventions)
{
    if (conventions == m_conventions)
        return;
    beginResetModel();
    m_conventions = conventions;
    m_places = m_conventions.dateFields + m_conventions.timeFields;
    endResetModel();
}

Instant DateTimeEntry::settledMoment()
{
    settle();
    return std::max(m_moment, m_ticker->now());
}

void DateTimeEntry::step(int row, int steps)
{
    if (!isRow(row))
        return;
    finish(row);
    setFields(stepped(m_fields, fieldAt(row), steps, rules()));
}

void DateTimeEntry::setNumber(int row, int number)
{
    if (!isRow(row))
        return;
    m_typing.reset();
    setFields(withField(m_fields, fieldAt(row), number, rules()));
}

int DateTimeEntry::pressKey(int row, int key, const QString &text)
{
    if (!isRow(row))
        return -1;
    if (const auto next = rowByKey(key, row, rowCount() - 1))
        return *next;
    if (changeByKey(row, key))
        return row;
    if (fieldAt(row) == DateTimeField::DayPeriod)
        return typeDayPeriod(row, text) ? row : -1;
    const int digit = digitValue(text);
    return digit < 0 ? -1 : typeDigit(row, digit);
}

bool DateTimeEntry::changeByKey(int row, int key)
{
    switch (key) {
    case Qt::Key_Up:
        step(row, 1);
        return true;
    case Qt::Key_Down:
        step(row, -1);
        return true;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        m_typing.reset();
        refresh();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        settle();
        return true;
    default:
        return false;
    }
}

void DateTimeEntry::finish(int row)
{
    if (!m_typing || m_typing->row != row)
        return;
    const int number = meantValue(m_typing->number, fieldAt(row));
    m_typing.reset();
    setFields(withField(m_fields, fieldAt(row), number, rules()));
}

void DateTimeEntry::settle()
{
    if (m_typing)
        finish(m_typing->row);
    const Instant earliest = startOfMinute(m_ticker->now());
    if (m_fields != m_settled)
        setMoment(momentNotBefore(earliest, m_fields, m_ticker->region()));
    else if (m_moment < earliest)
        setMoment(earliest);
}

void DateTimeEntry::leave()
{
    settle();
    m_calendar.close();
}

void DateTimeEntry::toggleCalendar()
{
    if (m_calendar.isOpen())
        return m_calendar.close();
    settle();
    m_calendar.open(shownDate(), today(), m_ticker->region().localeName());
}

int DateTimeEntry::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_places.size());
}

QVariant DateTimeEntry::data(const QModelIndex &index, int role) const
{
    const FieldPlace &place = m_places.at(index.row());
    const FieldRange range = fieldRange(place.field, rules());
    switch (role) {
    case NameRole:
        return Wording::dueDateField(place.field);
    case TextRole:
        return shownText(index.row());
    case WidestRole:
        return widestText(place);
    case NumberRole:
        return fieldValue(m_fields, place.field, rules());
    case LowestRole:
        return range.lowest;
    case HighestRole:
        return range.highest;
    case SeparatorRole:
        return place.separator;
    case StartsTimeRole:
        return index.row() == m_conventions.dateFields.size();
    default:
        return {};
    }
}

QHash<int, QByteArray> DateTimeEntry::roleNames() const
{
    return {
        { NameRole, "name" },
        { TextRole, "text" },
        { WidestRole, "widest" },
        { NumberRole, "number" },
        { LowestRole, "lowest" },
        { HighestRole, "highest" },
        { SeparatorRole, "separator" },
        { StartsTimeRole, "startsTime" },
    };
}

QDate DateTimeEntry::today() const
{
    return WallClock::dateAt(m_ticker->now(), m_ticker->region());
}

FieldRules DateTimeEntry::rules() const
{
    return { m_conventions.uses12Hours, today().year() };
}

void DateTimeEntry::setFields(const DateTimeFields &fields)
{
    m_fields = fields;
    m_isDefault = false;
    refresh();
}

void DateTimeEntry::setMoment(Instant moment)
{
    m_moment = moment;
    m_settled = fieldsOf(WallClock::minuteAt(moment, m_ticker->region()));
    m_fields = m_settled;
    refresh();
}

void DateTimeEntry::followClock()
{
    renewDefault();
    m_calendar.setToday(today());
}

/// A default that the user has not touched is not left to pass.
void DateTimeEntry::renewDefault()
{
    if (m_isDefault && m_moment <= m_ticker->now())
        setMoment(m_ticker->now().advanced(dayLength));
}

void DateTimeEntry::chooseDay(QDate date)
{
    DateTimeFields fields = m_fields;
    fields.year = date.year();
    fields.month = date.month();
    fields.day = date.day();
    setFields(fields);
    settle();
}

int DateTimeEntry::typeDigit(int row, int digit)
{
    const int highest = fieldRange(fieldAt(row), rules()).highest;
    const TypedNumber before = m_typing && m_typing->row == row ? m_typing->number : TypedNumber{};
    m_typing = Typing{ row, withDigit(before, digit, highest) };
    refresh();
    if (!isComplete(m_typing->number, highest))
        return row;
    finish(row);
    return std::min(row + 1, static_cast<int>(m_places.size()) - 1);
}

bool DateTimeEntry::typeDayPeriod(int row, const QString &text)
{
    const auto period = dayPeriodOf(text, m_conventions.dayPeriods);
    if (!period)
        return false;
    setNumber(row, *period);
    return true;
}

void DateTimeEntry::refresh()
{
    if (!m_places.isEmpty())
        emit dataChanged(index(0), index(rowCount() - 1), { TextRole, NumberRole });
    m_calendar.setChosen(shownDate());
}

QString DateTimeEntry::textOf(const FieldPlace &place, int number) const
{
    if (place.field == DateTimeField::DayPeriod)
        return m_conventions.dayPeriods.value(number);
    return localizedNumber(number, place.digits, m_conventions.zeroDigit);
}

QString DateTimeEntry::widestText(const FieldPlace &place) const
{
    if (place.field == DateTimeField::DayPeriod) {
        const auto &periods = m_conventions.dayPeriods;
        return *std::max_element(periods.cbegin(), periods.cend(),
            [](const QString &one, const QString &other) { return one.size() < other.size(); });
    }
    // In the panel's font; elsewhere the digits are of one width, or a field grows with its text.
    constexpr int widestDigit = 4;
    const int length = place.field == DateTimeField::Year ? 4 : 2;
    return localizedNumber(widestDigit, 1, m_conventions.zeroDigit).repeated(length);
}

QString DateTimeEntry::shownText(int row) const
{
    if (m_typing && m_typing->row == row)
        return localizedNumber(m_typing->number.value, m_typing->number.length, m_conventions.zeroDigit);
    const FieldPlace &place = m_places.at(row);
    return textOf(place, fieldValue(m_fields, place.field, rules()));
}

QDate DateTimeEntry::shownDate() const
{
    return minuteOf(m_fields).date;
}

} // namespace glimmet
