#include "ui/editors/DeadlineRows.h"

#include "platform/DateTimeText.h"
#include "ui/controls/RowChanges.h"
#include "ui/panel/Wording.h"

#include <algorithm>

namespace glimmet {

QString countdown(const Deadline &deadline, Instant now)
{
    const double secondsLeft = deadline.date.secondsSince2001 - now.secondsSince2001;
    return secondsLeft > 0 ? Deadline::formatInterval(secondsLeft) : QStringLiteral("passed");
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
        return row.title;
    case DateTextRole:
        return row.dateText;
    case CountdownRole:
        return row.countdown;
    case IsPassedRole:
        return row.isPassed;
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

DeadlineRows::Row DeadlineRows::rowOf(const Deadline &deadline, bool isRemoved) const
{
    const Instant now = ticker()->now();
    return { DeadlineUndo::keyOf(deadline), Wording::oneLine(deadline.title),
        mediumDateTimeText(deadline.date, ticker()->region()), countdown(deadline, now), deadline.date <= now,
        isRemoved };
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
    QList<Row> rows;
    if (ticker() != nullptr) {
        const QStringList removed = m_undo->removed();
        for (const Deadline &deadline : m_undo->shownDeadlines())
            rows.append(rowOf(deadline, removed.contains(DeadlineUndo::keyOf(deadline))));
        rememberRegion();
    }
    addAndRemove(rows);
    for (int i = 0; i < count(); ++i)
        setRow(i, rows.at(i));
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

void DeadlineRows::setRow(int i, const Row &row)
{
    if (row == m_rows.at(i))
        return;
    m_rows[i] = row;
    emit dataChanged(index(i), index(i));
}

void DeadlineRows::follow()
{
    if (!isRegionKnown())
        return rebuild();
    const Instant now = ticker()->now();
    const QList<Deadline> deadlines = m_undo->shownDeadlines();
    for (int i = 0; i < count(); ++i) {
        Row row = m_rows.at(i);
        row.countdown = countdown(deadlines.at(i), now);
        row.isPassed = deadlines.at(i).date <= now;
        setRow(i, row);
    }
    recount();
}

void DeadlineRows::recount()
{
    const auto active = static_cast<int>(std::count_if(
        m_rows.cbegin(), m_rows.cend(), [](const Row &row) { return !row.isPassed && !row.isRemoved; }));
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
