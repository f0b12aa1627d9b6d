#pragma once

#include "platform/Fatal.h"

#include <QtGlobal>

#include <cmath>

namespace glimmet {

/// `a + b`; a sum that 64 bits cannot hold ends the process.
inline qint64 checkedSum(qint64 a, qint64 b)
{
    qint64 sum = 0;
    if (__builtin_add_overflow(a, b, &sum))
        fatal("integer overflow");
    return sum;
}

/// `value` without its fraction; a value that is not finite or does not fit 64 bits ends the process.
inline qint64 checkedTruncation(double value)
{
    // 2^63 is the first double above the range; its negative is the lowest value in it. NaN fails both
    // comparisons.
    constexpr double limit = 9223372036854775808.0;
    if (!(value >= -limit && value < limit))
        fatal("a number is too large for an integer");
    return static_cast<qint64>(value);
}

/// `index` modulo `count` (at least 1), never negative.
inline qsizetype wrapped(qint64 index, qsizetype count)
{
    const qint64 remainder = index % count;
    return static_cast<qsizetype>(remainder < 0 ? remainder + count : remainder);
}

} // namespace glimmet
