#pragma once

#include "revenue/AnswerChecks.h"
#include "revenue/RevenueFetcher.h"
#include "revenue/ServiceWorld.h"

class QObject;

namespace glimmet {

/// The one request of a service that sums by itself.
struct FigureRequest {
    QByteArray address;
    ApiKey apiKey;
    AnswerRules rules;
};

/// Sends `request` and ends with exactly one call of `completion` on the main thread, unless `receiver` is
/// gone by then: with what `figure` makes of a good answer's body, on the network's thread, or with an
/// error. An address that cannot be sent ends it within this call.
void askForFigure(const ServiceWorld &world, QObject *receiver, const FigureRequest &request,
    std::function<QString(const QByteArray &body)> figure, RevenueFetcher::Completion completion);

} // namespace glimmet
