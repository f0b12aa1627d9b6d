#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/Differences.h"

namespace glimmet {

/// Plays a price case and tells what came otherwise than it must.
Differences playPriceCase(const AnswerCase &played);

} // namespace glimmet
