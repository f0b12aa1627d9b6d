#pragma once

#include "platform/Clock.h"

namespace glimmet {

/// A clock that stands still until it is moved.
class ManualClock final : public Clock {
public:
    Instant now() const override { return m_now; }
    void set(Instant moment) { m_now = moment; }
    void advance(double seconds) { m_now = m_now.advanced(seconds); }

private:
    Instant m_now;
};

} // namespace glimmet
