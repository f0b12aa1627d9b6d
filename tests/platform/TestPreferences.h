#pragma once

#include "platform/JsonPreferencesStore.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/ManualTimers.h"

namespace glimmet {

/// The preferences in a file, with timers that are moved by hand and a log that can be read.
struct TestPreferences {
    explicit TestPreferences(const QString &path)
        : store(path, timers, log.log())
    {
    }

    ManualTimers timers;
    CapturedLog log;
    JsonPreferencesStore store;
};

} // namespace glimmet
