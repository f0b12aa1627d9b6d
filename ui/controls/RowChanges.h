#pragma once

#include <QList>
#include <QStringList>

namespace glimmet {

/// What turns one list into another: rows that go or come, each step told as of the list after the steps
/// before it.
struct RowChange {
    enum class Kind { Remove, Insert };

    Kind kind = Kind::Remove;
    qsizetype first = 0;
    QStringList rows; ///< what goes, or what comes, in order

    friend bool operator==(const RowChange &, const RowChange &) = default;
};

/// The steps from `before` to `after`. Where one list only lacks rows of the other, no other row is touched;
/// else what differs between the common beginning and the common end is replaced.
QList<RowChange> rowChanges(const QStringList &before, const QStringList &after);

} // namespace glimmet
