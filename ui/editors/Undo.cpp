#include "ui/editors/Undo.h"

#include "ui/panel/Wording.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace glimmet {

void Undo::setTicker(TickerViewModel *ticker)
{
    if (m_ticker != nullptr)
        m_ticker->disconnect(this);
    m_ticker = ticker;
    if (m_ticker != nullptr) {
        watch(*m_ticker);
        follow();
    }
    emit tickerChanged();
}

void Undo::setDuration(int milliseconds)
{
    if (m_duration == milliseconds)
        return;
    m_duration = milliseconds;
    emit durationChanged();
}

void Undo::follow()
{
    m_entries = entriesAfter(std::move(m_entries), readList(), m_underWay);
    // What came back by itself needs no undoing. What is under way has not taken anything yet.
    m_removals.removeIf([this](const Removal &removal) {
        return removal.id != m_underWay
            && std::none_of(m_entries.cbegin(), m_entries.cend(),
                [&removal](const ShownEntry &entry) { return entry.removal == removal.id; });
    });
    tellChange();
}

/// First the rows, so that none of them is told that it is in the list when it goes.
void Undo::tellChange()
{
    emit shownChanged();
    emit offersChanged();
}

bool Undo::isShown(const ShownEntry &entry) const
{
    return std::none_of(m_removals.cbegin(), m_removals.cend(),
        [&entry](const Removal &removal) { return removal.isClearing && removal.id == entry.removal; });
}

QStringList Undo::shown() const
{
    QStringList keys;
    for (const ShownEntry &entry : m_entries) {
        if (isShown(entry))
            keys.append(entry.key);
    }
    return keys;
}

QStringList Undo::removed() const
{
    QStringList keys;
    for (const ShownEntry &entry : m_entries) {
        if (entry.removal != ShownEntry::inList && isShown(entry))
            keys.append(entry.key);
    }
    return keys;
}

QList<int> Undo::removedRows() const
{
    QList<int> rows;
    int row = 0;
    for (const ShownEntry &entry : m_entries) {
        if (!isShown(entry))
            continue;
        if (entry.removal != ShownEntry::inList)
            rows.append(row);
        ++row;
    }
    return rows;
}

QList<int> Undo::places() const
{
    QList<int> places;
    int place = 0;
    for (const ShownEntry &entry : m_entries) {
        if (entry.removal == ShownEntry::inList)
            places.append(place);
        if (isShown(entry))
            ++place;
    }
    return places;
}

bool Undo::canUndoClearing() const
{
    return std::any_of(
        m_removals.cbegin(), m_removals.cend(), [](const Removal &removal) { return removal.isClearing; });
}

QString Undo::news() const
{
    return m_removals.isEmpty() ? QString() : m_removals.last().news;
}

void Undo::remove(const QString &key)
{
    take({ ++m_lastId, false, Wording::removed(nameOf(key)) }, [this, &key] { removeFromList(key); });
}

void Undo::clear()
{
    take({ ++m_lastId, true, Wording::removedAll() }, [this] { clearList(); });
}

void Undo::take(Removal removal, const std::function<void()> &act)
{
    const int id = removal.id;
    m_removals.append(std::move(removal));
    m_underWay = id;
    act();
    m_underWay = ShownEntry::inList;
    // It may have found nothing to take.
    follow();
    QTimer::singleShot(m_duration, this, [this, id] { forget(id); });
}

void Undo::forget(int removal)
{
    m_entries = entriesWithout(std::move(m_entries), removal);
    m_removals.removeIf([removal](const Removal &one) { return one.id == removal; });
    tellChange();
}

void Undo::undo()
{
    if (canUndo())
        putBack(m_removals.last().id);
}

void Undo::undoClearing()
{
    const auto clearing = std::find_if(
        m_removals.crbegin(), m_removals.crend(), [](const Removal &removal) { return removal.isClearing; });
    if (clearing != m_removals.crend())
        putBack(clearing->id);
}

void Undo::putBack(const QString &key)
{
    for (const ShownEntry &entry : std::as_const(m_entries)) {
        if (entry.key == key && entry.removal != ShownEntry::inList)
            return putBack(entry.removal);
    }
}

void Undo::putBack(int removal)
{
    const QList<ShownEntry> before = m_entries;
    m_entries = entriesWithBack(std::move(m_entries), removal);
    writeList(before, removal);
}

} // namespace glimmet
