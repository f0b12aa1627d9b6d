#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QElapsedTimer>
#include <QTcpServer>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

using Ending = ServerAnswer::Ending;

const QByteArray body(10'000, 'a');

struct Timed {
    HttpResult result;
    qint64 milliseconds;
};

Timed timed(const QByteArray &address, std::chrono::milliseconds idleTimeout)
{
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = idleTimeout;
    HttpClient client(settings);
    QElapsedTimer elapsed;
    elapsed.start();
    HttpResult result = fetched(client, address);
    return { std::move(result), elapsed.elapsed() };
}

Timed timed(const ServerAnswer &answer, std::chrono::milliseconds idleTimeout = 400ms)
{
    const HttpsServer server([&answer](const ReceivedRequest &) { return answer; });
    return timed(server.origin() + "/", idleTimeout);
}

/// After 400 milliseconds, give or take what a timer may be early and a busy machine late.
void expectTimeOut(const Timed &timed)
{
    EXPECT_EQ(timed.result, HttpResult(TransportFailure::TimedOut));
    EXPECT_GT(timed.milliseconds, 300);
    EXPECT_LT(timed.milliseconds, 2000);
}

TEST(HttpClientTime, isFifteenSecondsWithoutProgressUnlessSetOtherwise)
{
    EXPECT_EQ(HttpSettings().idleTimeout, 15s);
}

TEST(HttpClientTime, isUnlimitedWhileSomethingComes)
{
    const Timed slow = timed(ServerAnswer{ .body = body, .delay = 200ms, .pieces = 6, .pause = 150ms });

    EXPECT_EQ(slow.result, answer(200, body));
    EXPECT_GT(slow.milliseconds, 800);
}

TEST(HttpClientTime, runsOutWhileNothingComes)
{
    expectTimeOut(timed(ServerAnswer{ .ending = Ending::Silence }));
}

TEST(HttpClientTime, runsOutInTheMiddleOfTheBody)
{
    for (const int status : { 200, 500 })
        expectTimeOut(timed(ServerAnswer{ .status = status, .body = body, .pieces = 2, .pause = 60s }));
}

TEST(HttpClientTime, runsOutWhileTheServerDoesNotEncrypt)
{
    QTcpServer mute;
    ASSERT_TRUE(mute.listen(QHostAddress::LocalHost));

    expectTimeOut(timed(originAt(mute.serverPort()) + "/", 400ms));
}

TEST(HttpClientTime, runsOutForEachStepOfARedirectionByItself)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        const int step = request.target.mid(1).toInt();
        return ServerAnswer{ .status = step == 4 ? 200 : 302,
            .body = "step",
            .headers = { { "Location", "/" + QByteArray::number(step + 1) } },
            .delay = 250ms };
    });

    const Timed steps = timed(server.origin() + "/0", 400ms);

    EXPECT_EQ(steps.result, answer(200, "step"));
}

} // namespace
} // namespace glimmet
