#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/Differences.h"

namespace glimmet {

/// Plays a case that ends the process, in a process of its own for each of its figures, and tells what came
/// otherwise than it must. `path` is the case's file.
Differences playFatalCase(const AnswerCase &played, const QString &path);

/// What such a process does. `arguments` are the case's file, the period, the figure and the service's
/// origin. Returns the exit status, if it comes to that.
int askForFigure(const QStringList &arguments);

} // namespace glimmet
