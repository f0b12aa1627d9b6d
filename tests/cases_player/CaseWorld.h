#pragma once

#include "core/TickerWorld.h"
#include "platform/net/HttpClient.h"
#include "tests/cases_player/AnswerCase.h"
#include "tests/support/FixedRegion.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryPreferences.h"

namespace glimmet {

/// Everything around the program in one play, as the case has it.
struct CaseWorld {
    explicit CaseWorld(const AnswerCase &played);

    ManualClock clock;
    ManualTimers timers{ clock };
    FixedRegion region;
    MemoryPreferences preferences;
    HttpClient http;

    TickerWorld forTicker(RevenueFetcher &revenue)
    {
        return { clock, region, timers, preferences, nullptr, &revenue };
    }
};

} // namespace glimmet
