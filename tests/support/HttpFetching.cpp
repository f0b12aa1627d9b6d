#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QTest>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

constexpr int deadline = 10'000; // milliseconds
constexpr qsizetype mostPrinted = 200;

} // namespace

HttpSettings trustingSettings()
{
    HttpSettings settings;
    settings.authorities = HttpsServer::authority();
    return settings;
}

HttpResult fetched(HttpClient &client, const QByteArray &address, const HttpHeaders &headers)
{
    return fetched(client, HttpRequest{ .address = address, .headers = headers });
}

HttpResult fetched(HttpClient &client, const HttpRequest &request)
{
    QObject receiver;
    std::optional<HttpResult> result;
    client.get(request, &receiver, asItIs, [&result](const HttpResult &value) {
        EXPECT_FALSE(result) << "a second result";
        result = value;
    });
    EXPECT_FALSE(result) << "the result came within the call";
    EXPECT_TRUE(QTest::qWaitFor([&result] { return result.has_value(); }, deadline)) << "no result";
    return result.value_or(TransportFailure::Failed);
}

QList<HttpResult> fetchedAtOnce(HttpClient &client, const QList<QByteArray> &addresses)
{
    QObject receiver;
    QList<HttpResult> results(addresses.size(), TransportFailure::Failed);
    QList<int> deliveries(addresses.size(), 0);
    for (qsizetype i = 0; i < addresses.size(); ++i)
        client.get({ addresses[i], {} }, &receiver, asItIs, [&, i](const HttpResult &result) {
            results[i] = result;
            ++deliveries[i];
        });
    EXPECT_TRUE(QTest::qWaitFor([&] { return !deliveries.contains(0); }, deadline)) << "no result";
    EXPECT_EQ(deliveries, QList<int>(addresses.size(), 1));
    return results;
}

HttpResult answer(int status, const QByteArray &body)
{
    return HttpAnswer{ status, body };
}

HttpResult asItIs(const HttpResult &result)
{
    return result;
}

void PrintTo(const HttpAnswer &answer, std::ostream *stream)
{
    *stream << answer.status << " with " << answer.body.size() << " bytes: ";
    ::PrintTo(answer.body.left(mostPrinted), stream);
}

void PrintTo(TransportFailure failure, std::ostream *stream)
{
    *stream << describe(failure).toStdString();
}

} // namespace glimmet
