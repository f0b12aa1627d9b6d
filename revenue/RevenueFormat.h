#pragma once

#include "revenue/RevenueChoices.h"

namespace glimmet {

/// The totals of an account's orders in one period.
struct RevenueTotals {
    qint64 revenue = 0; ///< sum, cents
    qint64 orders = 0; ///< count
    qint64 max = 0; ///< largest single amount, cents
};

/// An amount as US English writes it, with two digits behind the point; "$0.00" where `currency` is rejected.
QString fmtCents(qint64 cents, const QString &currency);

/// The menu-bar text of one figure. `currency` is an ISO 4217 code, used as given. Never fails: a code that
/// the formatter rejects reads "$0.00".
QString format(RevenueMetric metric, const RevenueTotals &totals, const QString &currency);

} // namespace glimmet
