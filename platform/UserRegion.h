#pragma once

#include "platform/Instant.h"

#include <QByteArray>

namespace glimmet {

/// Where the user is: the locale for dates and times and the time zone, both asked afresh at every call,
/// since either may change while the program runs. Main thread.
class UserRegion {
public:
    virtual ~UserRegion() = default;
    /// An ICU locale name such as "de_DE" or "en_US_POSIX".
    virtual QByteArray localeName() const = 0;
    /// Seconds that the user's wall clock is ahead of UTC at `moment`.
    virtual int utcOffset(Instant moment) const = 0;
};

/// The locale of the environment (LC_ALL, LC_TIME, LANG, in this order) and the system's time zone.
class SystemRegion final : public UserRegion {
public:
    QByteArray localeName() const override;
    int utcOffset(Instant moment) const override;
};

/// The ICU locale name for a POSIX one: "de_DE.UTF-8@euro" gives "de_DE", "C" and "POSIX" give "en_US_POSIX".
QByteArray icuLocaleName(const QByteArray &posixName);

} // namespace glimmet
