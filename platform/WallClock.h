#pragma once

#include "platform/Instant.h"

#include <QDate>

namespace glimmet {

class UserRegion;

/// Wall clocks: between moments and what the user's clock and Gregorian calendar show. Main thread.
namespace WallClock {

/// What the clock shows at `moment`, as seconds since it showed the beginning of 1970.
double secondsAt(Instant moment, const UserRegion &region);

/// When the clock shows one time: twice where it was put back over it, else once.
struct Moments {
    Instant first;
    Instant last; ///< the same as `first` where there is only one

    friend bool operator==(const Moments &, const Moments &) = default;
};

/// When the clock shows `seconds` since the beginning of 1970. Where it never does, since it was put forward
/// over it: as far behind the gap as the time is inside it.
Moments momentsOf(double seconds, const UserRegion &region);

/// A minute of a day.
struct Minute {
    QDate date;
    int hour = 0; ///< 0 to 23
    int minute = 0; ///< 0 to 59

    friend bool operator==(const Minute &, const Minute &) = default;
};

/// The minute in which the clock is at `moment`.
Minute minuteAt(Instant moment, const UserRegion &region);
/// When that minute begins.
Moments momentsOf(const Minute &minute, const UserRegion &region);

/// The user's date at `moment`.
QDate dateAt(Instant moment, const UserRegion &region);

} // namespace WallClock
} // namespace glimmet
