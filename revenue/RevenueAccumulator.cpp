#include "revenue/RevenueAccumulator.h"

#include "platform/CheckedInteger.h"

#include <algorithm>

namespace glimmet {

void RevenueAccumulator::add(qint64 cents)
{
    totalAmount = checkedSum(totalAmount, cents);
    orderCount = checkedSum(orderCount, 1);
    maxAmount = std::max(maxAmount, cents);
}

RevenueAccumulator fold(std::span<const PagedOrder> orders, RevenueAccumulator accumulator,
    const std::function<bool(Instant)> &isInPeriod)
{
    for (const PagedOrder &order : orders)
        if (!order.created || isInPeriod(*order.created))
            accumulator.add(order.amount.truncated());
    return accumulator;
}

} // namespace glimmet
