#pragma once

#include "revenue/PagedRevenueService.h"

#include <QList>

namespace glimmet {

/// Stands for the time of an order that has none.
inline constexpr double noTime = -0.5;

/// Cents of the page's orders.
inline QList<qint64> amountsIn(const RevenuePage &page)
{
    QList<qint64> amounts;
    for (const PagedOrder &order : page.orders)
        amounts.append(order.amount.truncated());
    return amounts;
}

/// When the page's orders were made, in seconds since 1970.
inline QList<double> timesIn(const RevenuePage &page)
{
    QList<double> times;
    for (const PagedOrder &order : page.orders)
        times.append(order.created ? order.created->unixMilliseconds() / 1000 : noTime);
    return times;
}

} // namespace glimmet
