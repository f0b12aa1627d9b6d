#pragma once

#include "revenue/RevenueChoices.h"
#include "tests/cases_player/CaseObject.h"

#include <functional>

namespace glimmet {

/// Calls `read` with every period and the member of `object` that is meant for it: the one of its name, or
/// "*", which is meant for all. Any other member is a complaint.
void eachPeriod(
    const CaseObject &object, const std::function<void(RevenueMode period, const CaseObject &member)> &read);

} // namespace glimmet
