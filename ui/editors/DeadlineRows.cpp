#include "ui/editors/DeadlineRows.h"

#include "platform/DateTimeText.h"
#include "ui/controls/RowChanges.h"
#include "ui/panel/Wording.h"

#include <algorithm>
#include <cmath>

namespace glimmet {

namespace {

double secondsLeft(Instant date, Instant now)
{
    return date.secondsSince2001 - now.secondsSince2001;
}

QString countdownTo(Instant date, Instant now)
{
    const double seconds = secondsLeft(date, now);
    return seconds > 0 ? Deadline::formatInterval(seconds) : QStringLiteral("passed");
}

/// Whether the row of that date reads otherwise than before. In most seconds no row of a long list does, and
/// that is seen without writing any of them.
bool readsAnew(Instant date, Instant before, Instant now)
{
    const auto minuteLeft = [date](Instant moment) {
        const double seconds = secondsLeft(date, moment);
        return seconds > 0 ? std::floor(seconds / 60) : -1;
    };
    return minuteLeft(before) != minuteLeft(now) && countdownTo(date, before) != countdownTo(date, now);
}

} // namespace

QString countdown(const Deadline &deadline, Instant now)
{
    return countdownTo(deadline.date, now);
}

void DeadlineRows::setUndo(DeadlineUndo *undo)
{
    if (m_undo != nullptr)
        m_undo->disconnect(this);
    m_undo = undo;
    if (m_undo != nullptr) {
        connect(m_undo, &DeadlineUndo::tickerChanged, this, &DeadlineRows::watchTicker);
        connect(m_undo, &DeadlineUndo::offersChanged, this, &DeadlineRows::rebuild);
    }
    emit undoChanged();
    watchTicker();
}

void DeadlineRows::watchTicker()
{
    disconnect(m_ticks);
    if (ticker() != nullptr)
        m_ticks = connect(ticker(), &TickerViewModel::ticked, this, &DeadlineRows::follow);
    rebuild();
}

int DeadlineRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant DeadlineRows::data(const QModelIndex &index, int role) const
{
    const Row &row = m_rows.at(index.row());
    switch (role) {
    case IdRole:
        return row.id;
    case TitleRole:
        return Wording::oneLine(row.title);
    case DateTextRole:
        return mediumDateTimeText(row.date, ticker()->region());
    case CountdownRole:
        return countdownTo(row.date, m_now);
    case IsPassedRole:
        return row.date <= m_now;
    default:
        return {};
    }
}

QHash<int, QByteArray> DeadlineRows::roleNames() const
{
    return {
        { IdRole, "deadlineId" },
        { TitleRole, "title" },
        { DateTextRole, "dateText" },
        { CountdownRole, "countdown" },
        { IsPassedRole, "isPassed" },
    };
}

QList<DeadlineRows::Row> DeadlineRows::wantedRows() const
{
    QList<Row> rows;
    if (ticker() == nullptr)
        return rows;
    const QStringList removed = m_undo->removed();
    for (const Deadline &deadline : m_undo->shownDeadlines()) {
        const QString id = DeadlineUndo::keyOf(deadline);
        rows.append({ id, deadline.title, deadline.date, removed.contains(id) });
    }
    return rows;
}

QStringList DeadlineRows::idsOf(const QList<Row> &rows)
{
    QStringList ids;
    for (const Row &row : rows)
        ids.append(row.id);
    return ids;
}

void DeadlineRows::rebuild()
{
    const QList<Row> rows = wantedRows();
    const bool isWrittenAnew = ticker() != nullptr && !isRegionKnown();
    const Instant before = m_now;
    if (ticker() != nullptr) {
        m_now = ticker()->now();
        rememberRegion();
    }
    addAndRemove(rows);
    for (int i = 0; i < count(); ++i) {
        const bool isAnother = rows.at(i) != m_rows.at(i);
        m_rows[i] = rows.at(i);
        if (isWrittenAnew || isAnother || readsAnew(rows.at(i).date, before, m_now))
            tell(i);
    }
    emit countChanged();
    recount();
}

void DeadlineRows::addAndRemove(const QList<Row> &wanted)
{
    for (const RowChange &change : rowChanges(idsOf(m_rows), idsOf(wanted))) {
        const auto first = static_cast<int>(change.first);
        const auto last = static_cast<int>(change.first + change.rows.size() - 1);
        if (change.kind == RowChange::Kind::Remove) {
            beginRemoveRows({}, first, last);
            m_rows.remove(first, change.rows.size());
            endRemoveRows();
        } else {
            beginInsertRows({}, first, last);
            for (int i = first; i <= last; ++i)
                m_rows.insert(i, wanted.at(i));
            endInsertRows();
        }
    }
}

void DeadlineRows::tell(int i)
{
    emit dataChanged(index(i), index(i));
}

void DeadlineRows::follow()
{
    if (!isRegionKnown())
        return rebuild();
    const Instant before = m_now;
    m_now = ticker()->now();
    for (int i = 0; i < count(); ++i) {
        if (readsAnew(m_rows.at(i).date, before, m_now))
            tell(i);
    }
    recount();
}

void DeadlineRows::recount()
{
    const auto active = static_cast<int>(std::count_if(m_rows.cbegin(), m_rows.cend(),
        [this](const Row &row) { return row.date > m_now && !row.isRemoved; }));
    if (active == m_activeCount)
        return;
    m_activeCount = active;
    emit activeCountChanged();
}

bool DeadlineRows::isRegionKnown() const
{
    return m_locale == ticker()->region().localeName()
        && m_utcOffset == ticker()->region().utcOffset(ticker()->now());
}

void DeadlineRows::rememberRegion()
{
    m_locale = ticker()->region().localeName();
    m_utcOffset = ticker()->region().utcOffset(ticker()->now());
}

} // namespace glimmet
