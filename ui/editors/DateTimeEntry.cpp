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
    const QByteArray locale = m_ticker->region().localeName();
    takeConventions(dateTimeConventions(locale));
    m_languages = { dateWords(locale), dateWords("en") };
    m_input = {};
    m_calendar.close();
    setMoment(m_ticker->now().advanced(dayLength));
    m_isDefault = true;
    m_isAsBegun = false;
}

void DateTimeEntry::begin(Instant moment)
{
    reset();
    setNote({});
    setMoment(moment);
    m_isDefault = false;
    m_isAsBegun = true;
}

/// The rows become new ones only where they must: the keyboard may be in one of them.
void DateTimeEntry::takeConventions(const DateTimeConventions &conventions)
{
    if (conventions == m_conventions)
        return;
    beginResetModel();
    m_conventions = conventions;
    QList<FieldPlace> date = m_conventions.dateFields;
    QList<FieldPlace> time = m_conventions.timeFields;
    QList<FieldPlace> &right = m_conventions.isRightToLeft ? date : time;
    m_gapColumn = static_cast<int>(m_conventions.isRightToLeft ? time.size() : date.size());
    for (FieldPlace &place : right)
        place.column += m_gapColumn;
    m_places = date + time;
    endResetModel();
}

Instant DateTimeEntry::settledMoment()
{
    settle();
    return m_isAsBegun ? m_moment : std::max(m_moment, m_ticker->now());
}

void DateTimeEntry::step(int row, int steps)
{
    if (!isRow(row))
        return;
    finish(m_input.row);
    m_input.moved.removeAll(fieldAt(row));
    setFields(stepped(m_input.fields, fieldAt(row), steps, rules()));
}

void DateTimeEntry::setNumber(int row, int number)
{
    if (!isRow(row))
        return;
    if (row != m_input.row)
        finish(m_input.row);
    forgetTyping();
    m_input.moved.removeAll(fieldAt(row));
    setFields(withField(m_input.fields, fieldAt(row), number, rules()));
}

int DateTimeEntry::pressKey(int row, int key, const QString &text)
{
    if (!isRow(row))
        return -1;
    if (const auto next = rowByKey(key, row))
        return *next;
    return changeByKey(row, key) ? row : typeText(row, text);
}

/// Where a key moves the keyboard; nothing for a key that does not. The arrows move as the eye sees.
std::optional<int> DateTimeEntry::rowByKey(int key, int row) const
{
    const int column = m_places.at(row).column;
    switch (key) {
    case Qt::Key_Left:
        return rowAtColumn(std::max(column - 1, 0));
    case Qt::Key_Right:
        return rowAtColumn(std::min(column + 1, rowCount() - 1));
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return rowCount() - 1;
    default:
        return std::nullopt;
    }
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
        forgetTyping();
        refresh();
        return true;
    default:
        return false;
    }
}

void DateTimeEntry::finish(int row)
{
    if (row < 0 || row != m_input.row)
        return;
    m_input = finished(m_input, inputRules());
    forgetTyping();
    refresh();
}

void DateTimeEntry::settle()
{
    finish(m_input.row);
    renewDefault();
    if (m_isDefault)
        setNote({});
    if (!m_isAsBegun)
        settleFields(startOfMinute(m_ticker->now()));
}

bool DateTimeEntry::settleAsSeen()
{
    const QString told = m_note;
    settle();
    return m_note.isEmpty() || m_note == told;
}

void DateTimeEntry::settleFields(Instant earliest)
{
    const DateTimeFields entered = m_input.fields;
    const auto moments = WallClock::momentsOf(minuteOf(entered), m_ticker->region());
    if (entered != settledFields())
        setMoment(momentNotBefore(earliest, entered, m_ticker->region()));
    else if (m_moment < earliest)
        setMoment(earliest);
    if (moments.last < earliest)
        setNote(Wording::movedToNow());
    else if (entered != m_input.fields || !m_input.moved.isEmpty())
        setNote(Wording::movedToNearest());
    m_input.moved.clear();
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
        return fieldValue(m_input.fields, place.field, rules());
    case LowestRole:
        return range.lowest;
    case HighestRole:
        return range.highest;
    case SeparatorRole:
        return place.separator;
    case LeftRowRole:
        return rowAtColumn(place.column - 1);
    case FollowsGapRole:
        return place.column == m_gapColumn;
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
        { LeftRowRole, "leftRow" },
        { FollowsGapRole, "followsGap" },
    };
}

QDate DateTimeEntry::today() const
{
    return WallClock::dateAt(m_ticker->now(), m_ticker->region());
}

DateTimeFields DateTimeEntry::settledFields() const
{
    return fieldsOf(WallClock::minuteAt(m_moment, m_ticker->region()));
}

FieldRules DateTimeEntry::rules() const
{
    return { m_conventions.uses12Hours, today().year() };
}

InputRules DateTimeEntry::inputRules() const
{
    InputRules input{ {}, rules(), m_conventions.dayPeriods, {}, today(), m_languages };
    for (const FieldPlace &place : m_places) {
        input.order.append(place.field);
        input.separators += place.separator;
    }
    return input;
}

int DateTimeEntry::rowAtColumn(int column) const
{
    const auto place = std::find_if(
        m_places.cbegin(), m_places.cend(), [&](const FieldPlace &one) { return one.column == column; });
    return place == m_places.cend() ? -1 : static_cast<int>(place - m_places.cbegin());
}

void DateTimeEntry::setFields(const DateTimeFields &fields)
{
    m_input.fields = fields;
    m_isDefault = false;
    m_isAsBegun = false;
    setNote({});
    refresh();
}

void DateTimeEntry::setMoment(Instant moment)
{
    m_moment = moment;
    m_input.fields = settledFields();
    refresh();
}

void DateTimeEntry::setNote(const QString &note)
{
    if (note == m_note)
        return;
    m_note = note;
    emit noteChanged();
}

void DateTimeEntry::followClock()
{
    renewDefault();
    m_calendar.setToday(today());
}

/// A default that the user has not touched is not left to pass, and is a day ahead by the clock of any zone;
/// a moment that was given stays that moment.
void DateTimeEntry::renewDefault()
{
    const bool isOfAnotherZone = m_input.fields != settledFields();
    if (m_isDefault && (m_moment <= m_ticker->now() || isOfAnotherZone))
        setMoment(m_ticker->now().advanced(dayLength));
    if (m_isAsBegun && isOfAnotherZone)
        setMoment(m_moment);
}

void DateTimeEntry::chooseDay(QDate date)
{
    DateTimeFields fields = m_input.fields;
    fields.year = date.year();
    fields.month = date.month();
    fields.day = date.day();
    setFields(fields);
    settle();
}

int DateTimeEntry::typeText(int row, const QString &text)
{
    if (row != m_input.row)
        finish(m_input.row);
    DateTimeInput input = m_input;
    input.row = row;
    const auto next = withTyped(input, text, inputRules());
    if (!next)
        return -1;
    const bool isUntouched = !next->run && next->letters.isEmpty();
    m_isDefault = m_isDefault && isUntouched;
    m_isAsBegun = m_isAsBegun && isUntouched;
    m_input = *next;
    setNote({});
    refresh();
    return m_input.row;
}

/// What the fields show stays.
void DateTimeEntry::forgetTyping()
{
    DateTimeInput entered;
    entered.fields = m_input.fields;
    entered.moved = m_input.moved;
    m_input = entered;
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

/// The month that the letters name, or they themselves while they may become several months; else none.
QString DateTimeEntry::monthBeingTyped(const FieldPlace &place) const
{
    if (place.field != DateTimeField::Month || m_input.wordRow < 0)
        return {};
    const DateWord word = dateWordOf(m_input.letters, m_languages);
    if (word.kind == DateWordKind::Month)
        return textOf(place, word.month);
    return word.kind == DateWordKind::MonthBeginning ? m_input.letters : QString();
}

QString DateTimeEntry::shownText(int row) const
{
    const FieldPlace &place = m_places.at(row);
    if (const QString month = monthBeingTyped(place); !month.isEmpty())
        return month;
    const TypedNumber &typed = m_input.number;
    const int typedRow = m_input.wordRow < 0 ? m_input.row : m_input.wordRow;
    if (row == typedRow && typed.length > 0)
        return localizedNumber(typed.value, typed.length, m_conventions.zeroDigit);
    return textOf(place, fieldValue(m_input.fields, place.field, rules()));
}

QDate DateTimeEntry::shownDate() const
{
    return minuteOf(m_input.fields).date;
}

} // namespace glimmet
