#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/CaseObject.h"

namespace glimmet {

/// Reads what must come of a case: "expect", "totals", "log" and "fatal".
void readExpectation(const CaseObject &root, AnswerCase &result);

} // namespace glimmet
