#include "revenue/FigureRequest.h"

#include "platform/net/HttpClient.h"

namespace glimmet {

void askForFigure(const ServiceWorld &world, QObject *receiver, const FigureRequest &request,
    std::function<QString(const QByteArray &body)> figure, RevenueFetcher::Completion completion)
{
    if (!isSendableAddress(request.address))
        return completion(transportError(TransportFailure::InvalidAddress));
    const auto read = [figure = std::move(figure), rules = request.rules, apiKey = request.apiKey,
                          &log = world.log](const HttpResult &result) -> RevenueResult {
        const auto body = checkedBody(result, rules, apiKey, log);
        if (const auto *error = std::get_if<RevenueResult>(&body))
            return *error;
        return { figure(std::get<QByteArray>(body)) };
    };
    world.http.get(authorizedRequest(request.address, request.apiKey, "application/json"), receiver, read,
        std::move(completion));
}

} // namespace glimmet
