#include "platform/Clock.h"

#include <ctime>

namespace glimmet {

Instant SystemClock::now() const
{
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    return { static_cast<double>(time.tv_sec - Instant::unixEpochOffset)
        + static_cast<double>(time.tv_nsec) * 1e-9 };
}

} // namespace glimmet
