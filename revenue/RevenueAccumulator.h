#pragma once

#include "platform/Instant.h"
#include "revenue/Amount.h"
#include "revenue/RevenueFormat.h"

#include <functional>
#include <optional>
#include <span>

namespace glimmet {

/// An order that counts if its time does.
struct PagedOrder {
    std::optional<Instant> created; ///< none: counts in every period
    Amount amount; ///< cents
};

/// The running totals of a list of orders that comes page by page. A sum that 64 bits cannot hold ends the
/// process.
struct RevenueAccumulator {
    qint64 totalAmount = 0; ///< cents
    qint64 orderCount = 0;
    qint64 maxAmount = 0; ///< cents

    void add(qint64 cents);
    RevenueTotals totals() const { return { totalAmount, orderCount, maxAmount }; }

    friend bool operator==(const RevenueAccumulator &, const RevenueAccumulator &) = default;
};

/// The totals with these orders added, in their order, as far as their time counts.
RevenueAccumulator fold(std::span<const PagedOrder> orders, RevenueAccumulator accumulator,
    const std::function<bool(Instant)> &isInPeriod);

} // namespace glimmet
