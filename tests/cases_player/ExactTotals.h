#pragma once

#include "tests/cases_player/AnswerCase.h"

namespace glimmet {

/// The exact sums of a revenue case's pages in a period, by their name: "total", "count" and "max", or
/// RevenueCat's metrics, of which a missing one is 0. Made by the functions that read and fold the pages,
/// without requests and texts.
CaseTotals exactTotals(const AnswerCase &played, RevenueMode period);

} // namespace glimmet
