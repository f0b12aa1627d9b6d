#include "ui/controls/RowChanges.h"

#include <algorithm>
#include <optional>

namespace glimmet {

namespace {

using Kind = RowChange::Kind;

/// The rows that `longer` has more than `shorter`, as runs told by their places in `longer`; nothing where
/// `shorter` has rows of its own.
std::optional<QList<RowChange>> additionalRows(
    const QStringList &shorter, const QStringList &longer, Kind kind)
{
    QList<RowChange> runs;
    qsizetype matched = 0;
    bool continues = false;
    for (qsizetype row = 0; row < longer.size(); ++row) {
        if (matched < shorter.size() && longer.at(row) == shorter.at(matched)) {
            ++matched;
            continues = false;
            continue;
        }
        if (!continues)
            runs.append({ kind, row, {} });
        runs.last().rows.append(longer.at(row));
        continues = true;
    }
    if (matched < shorter.size())
        return {};
    return runs;
}

} // namespace

QList<RowChange> rowChanges(const QStringList &before, const QStringList &after)
{
    if (const auto inserted = additionalRows(before, after, Kind::Insert))
        return *inserted;
    if (auto removed = additionalRows(after, before, Kind::Remove)) {
        // From the end, so that the places of those still to go stay as they are.
        std::reverse(removed->begin(), removed->end());
        return *removed;
    }
    const auto [firstBefore, firstAfter] =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto [lastBefore, lastAfter] = std::mismatch(before.rbegin(),
        std::make_reverse_iterator(firstBefore), after.rbegin(), std::make_reverse_iterator(firstAfter));
    const qsizetype first = firstBefore - before.begin();
    return { { Kind::Remove, first, QStringList(firstBefore, lastBefore.base()) },
        { Kind::Insert, first, QStringList(firstAfter, lastAfter.base()) } };
}

} // namespace glimmet
