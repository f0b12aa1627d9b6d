#pragma once

#include <QtGlobal>

#include <chrono>

namespace glimmet {

/// How far a list of orders is read at most: a server that never says "no more" is not asked for ever.
struct HistoryBounds {
    qint64 pages = 100'000; ///< ten million orders
    std::chrono::nanoseconds time = std::chrono::hours(1); ///< no page is asked for later than that
};

} // namespace glimmet
