#include "ui/editors/ShownEntries.h"

#include "ui/controls/RowChanges.h"

namespace glimmet {

namespace {

/// Where the entry stands that is in the list at `index`; behind all where there is none.
qsizetype placeOf(const QList<ShownEntry> &entries, qsizetype index)
{
    for (qsizetype place = 0; place < entries.size(); ++place) {
        if (entries.at(place).removal == ShownEntry::inList && index-- == 0)
            return place;
    }
    return entries.size();
}

void takeOut(QList<ShownEntry> &entries, const RowChange &change, int removal)
{
    for (qsizetype i = 0; i < change.rows.size(); ++i) {
        const qsizetype place = placeOf(entries, change.first);
        if (removal == ShownEntry::inList)
            entries.removeAt(place);
        else
            entries[place].removal = removal;
    }
}

void putIn(QList<ShownEntry> &entries, const QStringList &keys, qsizetype place)
{
    for (const QString &key : keys)
        entries.insert(place++, { key });
}

} // namespace

QStringList keysInList(const QList<ShownEntry> &entries)
{
    QStringList keys;
    for (const ShownEntry &entry : entries) {
        if (entry.removal == ShownEntry::inList)
            keys.append(entry.key);
    }
    return keys;
}

QList<ShownEntry> entriesAfter(QList<ShownEntry> entries, const QStringList &now, int removal)
{
    entries.removeIf([&now](const ShownEntry &entry) {
        return entry.removal != ShownEntry::inList && now.contains(entry.key);
    });
    // Where rows are replaced, the new ones stand where the old ones stood.
    RowChange left;
    qsizetype gap = 0;
    for (const RowChange &change : rowChanges(keysInList(entries), now)) {
        const qsizetype place = placeOf(entries, change.first);
        if (change.kind == RowChange::Kind::Remove) {
            takeOut(entries, change, removal);
            left = change;
            gap = place;
        } else {
            const bool replaces = !left.rows.isEmpty() && left.first == change.first;
            putIn(entries, change.rows, replaces ? gap : place);
        }
    }
    return entries;
}

QList<ShownEntry> entriesWithBack(QList<ShownEntry> entries, int removal)
{
    for (ShownEntry &entry : entries) {
        if (entry.removal == removal)
            entry.removal = ShownEntry::inList;
    }
    return entries;
}

QList<ShownEntry> entriesWithout(QList<ShownEntry> entries, int removal)
{
    entries.removeIf([removal](const ShownEntry &entry) { return entry.removal == removal; });
    return entries;
}

} // namespace glimmet
