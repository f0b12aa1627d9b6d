#pragma once

#include "platform/keys/ApiKey.h"
#include "platform/net/Http.h"
#include "revenue/RevenueFetcher.h"

#include <QString>

#include <variant>

namespace glimmet {

class DiagnosticLog;

/// In what one service's answers differ from another's.
struct AnswerRules {
    QString service; ///< its name in the log
    QString body; ///< what the log calls the answer's body
    int headLength = 0; ///< characters of a body that are logged
    QString empty = QStringLiteral("⚠ empty"); ///< the text for an answer without a body
    QString forbidden = QStringLiteral("⚠ forbidden"); ///< the text for the status 403
    QString unprocessable = {}; ///< the text for the status 422; empty: like any other status
};

/// A GET of `address` that carries the key. The key goes exactly as it is.
HttpRequest authorizedRequest(const QByteArray &address, const ApiKey &apiKey, const QByteArray &accept);

/// The error for a request that was not answered: "⚠ " and the reason.
RevenueResult transportError(TransportFailure failure);

/// The UTF-8 `text` with "•••" in the place of the key, for the log. A key of fewer than eight characters
/// stays.
QByteArray masked(QByteArray text, const ApiKey &apiKey);

/// The body of a good answer, or the error for any other. Logs the status and the head of the body, in
/// which the key, should the server send it back, is masked. Any thread.
std::variant<QByteArray, RevenueResult> checkedBody(
    const HttpResult &result, const AnswerRules &rules, const ApiKey &apiKey, DiagnosticLog &log);

} // namespace glimmet
