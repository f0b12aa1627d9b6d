#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/Differences.h"

namespace glimmet {

/// How the requests that came differ from those that a play for `period` must send. The one that is refused
/// reaches nobody, so that it is not among them, whether or not the case names it.
Differences compareRequests(
    const AnswerCase &played, RevenueMode period, const QList<ReceivedRequest> &received);

} // namespace glimmet
