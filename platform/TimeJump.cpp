#include "platform/TimeJump.h"

#include <cmath>

namespace glimmet {
namespace {

using Seconds = std::chrono::duration<double>;

// The readings are not taken in one step, so that some milliseconds of sleep mean nothing.
constexpr Seconds shortestSleep{ 1 };
constexpr Seconds largestDeviation{ 30 };

} // namespace

bool hasTimeJumped(const ClockReadings &before, const ClockReadings &after)
{
    const Seconds slept = after.asleep - before.asleep;
    const Seconds passed = after.steady - before.steady + slept;
    const Seconds shown(after.wall.secondsSince2001 - before.wall.secondsSince2001);
    return slept >= shortestSleep || std::abs((shown - passed).count()) > largestDeviation.count();
}

} // namespace glimmet
