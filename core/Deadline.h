#pragma once

#include "platform/Instant.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUuid>

#include <optional>

namespace glimmet {

/// A titled moment that the user counts down to.
struct Deadline {
    QUuid id; ///< identity, made fresh with the deadline
    QString title;
    Instant date; ///< when it falls due

    /// The time left, in its two largest units: "2d 5h", "3h 12m" or "45m"; seconds are cut off and never
    /// shown. `seconds` is positive; a value that no integer can hold ends the process.
    static QString formatInterval(double seconds);

    friend bool operator==(const Deadline &, const Deadline &) = default;
};

/// The compact JSON array in which deadlines are stored: objects of "id" (upper-case UUID), "title" and
/// "date" (seconds since 2001, to the last bit). Nothing where a date is not finite, which JSON cannot say.
std::optional<QByteArray> deadlinesToJson(const QList<Deadline> &deadlines);

/// The deadlines of such an array, in its order; members in any order, the UUID in either case. Nothing where
/// any part is missing or of another type.
std::optional<QList<Deadline>> deadlinesFromJson(const QByteArray &json);

/// `deadlines` with the earliest first; equal dates keep their order.
QList<Deadline> deadlinesByDate(QList<Deadline> deadlines);

} // namespace glimmet
