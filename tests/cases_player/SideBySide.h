#pragma once

#include "tests/cases_player/AnswerCase.h"
#include "tests/cases_player/Differences.h"
#include "tests/cases_player/Waiting.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace glimmet {

/// The lines that the case expects, against `output`.
Differences compareLog(const AnswerCase &played, const QByteArray &output);

/// Asks for each figure of a case at the same time, so that time-outs are waited for only once. A Play is
/// made of the case, a figure and `more`; it has `isDone()`, `differences()` and its `output()`.
template <typename Play, typename... More>
Differences playSideBySide(const AnswerCase &played, const More &...more)
{
    std::vector<std::unique_ptr<Play>> plays;
    for (const CaseFigure &figure : played.figures)
        plays.push_back(std::make_unique<Play>(played, figure, more...));
    waitUntil([&plays] {
        return std::all_of(plays.begin(), plays.end(), [](const auto &play) { return play->isDone(); });
    });

    Differences differences;
    QByteArray output;
    for (const auto &play : plays) {
        differences.add(play->differences());
        output += play->output();
    }
    differences.add(compareLog(played, output));
    return differences;
}

} // namespace glimmet
