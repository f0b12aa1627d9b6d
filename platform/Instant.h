#pragma once

#include <QtGlobal>

#include <chrono>
#include <compare>

namespace glimmet {

/// A moment, as seconds with fraction since 2001-01-01 00:00:00 UTC. The double is kept to the last bit, so
/// that a stored moment reads back as the very same one.
struct Instant {
    double secondsSince2001 = 0;

    /// Seconds between 1970-01-01 and 2001-01-01, both 00:00:00 UTC.
    static constexpr qint64 unixEpochOffset = 978'307'200;

    static constexpr Instant fromUnixSeconds(double seconds)
    {
        return { seconds - static_cast<double>(unixEpochOffset) };
    }
    /// Milliseconds since 1970-01-01 00:00:00 UTC.
    constexpr double unixMilliseconds() const
    {
        return (secondsSince2001 + static_cast<double>(unixEpochOffset)) * 1000.0;
    }
    /// This moment moved by `seconds`.
    constexpr Instant advanced(double seconds) const { return { secondsSince2001 + seconds }; }

    // clang-tidy takes the zero inside a defaulted <=> for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend constexpr auto operator<=>(Instant, Instant) = default;
};

/// Whether `moment` is longer ago than `age`.
constexpr bool isOlderThan(std::chrono::seconds age, Instant moment, Instant now)
{
    return now > moment.advanced(static_cast<double>(age.count()));
}

} // namespace glimmet
