#pragma once

#include "core/TickerViewModel.h"
#include "platform/UserRegion.h"
#include "platform/WallClock.h"

#include <QByteArray>
#include <QDate>

namespace glimmet {

/// What the text of a recent time depends on besides the time: the user's day, clock and language.
struct UsersDay {
    QDate today;
    int utcOffset = 0; ///< seconds
    QByteArray locale;

    static UsersDay of(const TickerViewModel &ticker)
    {
        return { WallClock::dateAt(ticker.now(), ticker.region()), ticker.region().utcOffset(ticker.now()),
            ticker.region().localeName() };
    }
    friend bool operator==(const UsersDay &, const UsersDay &) = default;
};

} // namespace glimmet
