#pragma once

#include "platform/TimeJump.h"

#include <functional>

namespace glimmet {

class Clock;
class KeyStore;
class PreferencesStore;
class PriceSource;
class RevenueFetcher;
class Timers;
class UserRegion;

/// What the ticker needs of the world around it. Everything outlives the ticker.
struct TickerWorld {
    const Clock &clock;
    const UserRegion &region;
    Timers &timers;
    PreferencesStore &preferences;
    PriceSource *prices = nullptr; ///< none: prices stay unknown
    RevenueFetcher *revenue = nullptr; ///< none: the revenue text stays as it is
    KeyStore *keys = nullptr; ///< none: credentials live as long as the ticker
    std::function<ClockReadings()> clockReadings = {}; ///< none: no sleep and no set clock is noticed
};

} // namespace glimmet
