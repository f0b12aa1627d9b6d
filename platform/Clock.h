#pragma once

#include "platform/Instant.h"

namespace glimmet {

/// Tells the current moment. Any thread.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Instant now() const = 0;
};

/// The system's real-time clock.
class SystemClock final : public Clock {
public:
    Instant now() const override;
};

} // namespace glimmet
