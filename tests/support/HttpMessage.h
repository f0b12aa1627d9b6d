#pragma once

#include "tests/support/HttpsServer.h"

#include <optional>

namespace glimmet {

/// The value of the first header of that name, in any case; empty where it is missing.
QByteArray valueOf(const HttpHeaders &headers, const QByteArray &name);

/// Takes one whole request without a body off the front of `received`; none while its end is missing.
/// What is no HTTP becomes a request without a method.
std::optional<ReceivedRequest> takeRequest(QByteArray &received);

/// The status line and all headers, with the Content-Length of the whole body and the empty line.
QByteArray headOf(const ServerAnswer &answer);
/// What goes out of the body, or of what takes its place, in the pieces in which it goes out: at least one,
/// which may be empty.
QList<QByteArray> piecesOf(const ServerAnswer &answer);
/// Whether the connection has served its time after `answer`.
bool endsConnection(const ReceivedRequest &request, const ServerAnswer &answer);

} // namespace glimmet
