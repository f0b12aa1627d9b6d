#pragma once

#include "platform/net/HttpClient.h"
#include "tests/support/HttpsServer.h"

#include <QList>

#include <iosfwd>

namespace glimmet {

/// Trusts the tests' servers alone.
HttpSettings trustingSettings();

/// Asks, and lets events happen until the result is there; a failure of the test where none comes within ten
/// seconds.
HttpResult fetched(HttpClient &client, const HttpRequest &request);
HttpResult fetched(HttpClient &client, const QByteArray &address, const HttpHeaders &headers = {});

/// Asks for each address at the same moment; the results are in the order of the addresses.
QList<HttpResult> fetchedAtOnce(HttpClient &client, const QList<QByteArray> &addresses);

HttpResult answer(int status, const QByteArray &body);
/// What a client makes of a result where nothing has to be read out of it.
HttpResult asItIs(const HttpResult &result);

void PrintTo(const HttpAnswer &answer, std::ostream *stream);
void PrintTo(TransportFailure failure, std::ostream *stream);

} // namespace glimmet
