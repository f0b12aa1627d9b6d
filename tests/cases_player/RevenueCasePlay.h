#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/Differences.h"

namespace glimmet {

/// Plays a revenue case for each of its figures, each in a world and of a service of its own, compares the
/// exact sums of its pages, and tells what came otherwise than it must.
Differences playRevenueCase(const AnswerCase &played);

} // namespace glimmet
