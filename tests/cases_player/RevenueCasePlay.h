#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/Differences.h"

namespace glimmet {

/// Plays a revenue case for each of its figures and tells what came otherwise than it must. The figures are
/// asked for side by side, each in a world and of a service of its own.
Differences playRevenueCase(const AnswerCase &played);

/// The exact sums that the case expects, against those of its pages.
Differences compareTotals(const AnswerCase &played);

/// The lines that the case expects, against `output`, where the service at `origin` stands for the real one.
Differences compareLog(const AnswerCase &played, const QByteArray &output);

} // namespace glimmet
