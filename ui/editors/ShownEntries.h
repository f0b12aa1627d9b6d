#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace glimmet {

/// An entry of a list as the user sees it: one that is in the list, or one that was removed and holds its
/// place for as long as it can be put back.
struct ShownEntry {
    static constexpr int inList = 0;

    QString key; ///< tells entries apart
    int removal = inList; ///< by which it went, if it did

    friend bool operator==(const ShownEntry &, const ShownEntry &) = default;
};

/// The keys of those that are in the list, in order.
QStringList keysInList(const QList<ShownEntry> &entries);

/// `entries` after a change that left the list as `now`. What came has its place among them. What went stays
/// as removed by `removal`, or goes where that is `inList`. One that was removed and came back by itself
/// cannot be put back once more.
QList<ShownEntry> entriesAfter(QList<ShownEntry> entries, const QStringList &now, int removal);

/// `entries` with those that `removal` took in the list again, each where it stands.
QList<ShownEntry> entriesWithBack(QList<ShownEntry> entries, int removal);

/// `entries` without those that `removal` took.
QList<ShownEntry> entriesWithout(QList<ShownEntry> entries, int removal);

} // namespace glimmet
