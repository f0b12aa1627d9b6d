#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/CaseObject.h"

namespace glimmet {

/// Reads a member of "pages".
CasePage readPage(const CaseObject &object);
/// Reads "requests", or "request" with one for each period.
void readRequests(const CaseObject &root, AnswerCase &result);

} // namespace glimmet
