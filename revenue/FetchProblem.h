#pragma once

#include "platform/Instant.h"
#include "revenue/RevenueChoices.h"

#include <QMap>
#include <QString>

namespace glimmet {

/// An error of a fetch.
struct FetchProblem {
    QString text; ///< begins with "⚠ "; no credential is in it
    Instant when; ///< it was told

    friend bool operator==(const FetchProblem &, const FetchProblem &) = default;
};

/// The last error of each platform that has had no success since.
using FetchProblems = QMap<RevenueProvider, FetchProblem>;

} // namespace glimmet
