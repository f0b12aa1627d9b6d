#pragma once

#include "core/TickerViewModel.h"
#include "tests/support/FakePriceSource.h"
#include "tests/support/FakeRevenueFetcher.h"
#include "tests/support/FixedRegion.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryKeyStore.h"
#include "tests/support/MemoryPreferences.h"
#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// Everything around a ticker, in a test's hand. It is 2026-05-04 09:05:07 in London.
struct TestWorld {
    ManualClock clock;
    ManualTimers timers{ clock };
    FixedRegion region{ "en_GB", "Europe/London" };
    MemoryPreferences preferences;
    FakePriceSource prices;
    FakeRevenueFetcher revenue;
    MemoryKeyStore keys;
    std::chrono::milliseconds asleep{ 0 };

    TestWorld() { clock.set(instantAt(u"2026-05-04T08:05:07Z"_s)); }
    TickerWorld forTicker()
    {
        return { clock, region, timers, preferences, &prices, &revenue, &keys,
            [this] { return ClockReadings{ clock.now(), clock.elapsed(), asleep }; } };
    }
    /// The machine sleeps, and its timers with it.
    void sleep(std::chrono::seconds time)
    {
        asleep += time;
        clock.advance(static_cast<double>(time.count()));
    }
    /// A deadline `seconds` from now.
    Deadline deadline(const QString &title, double seconds) const
    {
        return { QUuid::createUuid(), title, clock.now().advanced(seconds) };
    }
};

/// A world with a ticker in it that has run its first tick.
class TickerTest : public testing::Test {
protected:
    /// Lets `count` display ticks pass.
    void tick(int count = 1) { world.timers.advance(count * 1s); }
    QString shown() const { return ticker.currentDisplay(); }

    TestWorld world;
    TickerViewModel ticker{ world.forTicker() };
};

} // namespace glimmet
