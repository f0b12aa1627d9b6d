#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

using testing::Each;

using Ending = ServerAnswer::Ending;

const HttpResult lost = TransportFailure::ConnectionLost;

/// Serves "/kept" after a moment, and cuts every other answer off behind `bytes`.
class CuttingServer : public HttpsServer {
public:
    explicit CuttingServer(const QByteArray &bytes = {})
        : HttpsServer([bytes](const ReceivedRequest &request) {
            if (request.target == "/kept")
                return ServerAnswer{ .body = "kept", .delay = 100ms };
            return ServerAnswer{ .ending = bytes.isEmpty() ? Ending::CutBeforeAnswer : Ending::CutInBody,
                .raw = bytes };
        })
    {
    }

    /// How often that was asked for.
    qsizetype askedFor(const QByteArray &target) const
    {
        const auto all = requests();
        return std::count_if(
            all.begin(), all.end(), [&](const ReceivedRequest &request) { return request.target == target; });
    }
};

TEST(HttpClientRepetition, isOneOverAFreshConnectionHoweverManyWereKept)
{
    const CuttingServer server;
    HttpClient client(trustingSettings());
    EXPECT_THAT(
        fetchedAtOnce(client, QList<QByteArray>(6, server.origin() + "/kept")), Each(answer(200, "kept")));
    ASSERT_EQ(server.connections(), 6);

    EXPECT_EQ(fetched(client, server.origin() + "/cut"), lost);

    EXPECT_EQ(server.askedFor("/cut"), 2);
    EXPECT_EQ(server.connections(), 7);
}

TEST(HttpClientRepetition, isNoneOverTheFirstConnection)
{
    const CuttingServer server;
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/cut"), lost);

    EXPECT_EQ(server.askedFor("/cut"), 1);
}

TEST(HttpClientRepetition, isNoneOnceTheStatusCame)
{
    const CuttingServer server("HTTP/1.1 200 OK\r\n");
    HttpClient client(trustingSettings());
    EXPECT_EQ(fetched(client, server.origin() + "/kept"), answer(200, "kept"));

    EXPECT_EQ(fetched(client, server.origin() + "/cut"), lost);

    EXPECT_EQ(server.askedFor("/cut"), 1);
}

TEST(HttpClientRepetition, isNoneAfterSilence)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        return ServerAnswer{ .body = "hello",
            .ending = request.target == "/silence" ? Ending::Silence : Ending::Complete };
    });
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = 300ms;
    HttpClient client(settings);
    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "hello"));

    EXPECT_EQ(fetched(client, server.origin() + "/silence"), HttpResult(TransportFailure::TimedOut));

    EXPECT_EQ(server.requests().size(), 2);
}

/// The answer to "/kept", and behind it, on the same connection, an answer to nothing.
class TalkativeServer : public HttpsServer {
public:
    TalkativeServer()
        : HttpsServer([](const ReceivedRequest &request) {
            const QByteArray head = "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n";
            if (request.target == "/kept")
                return ServerAnswer{ .pieces = 2, .pause = 50ms, .raw = head + "kept" + head + "evil" };
            return ServerAnswer{ .body = "good" };
        })
    {
    }
};

TEST(HttpClientRepetition, isInThePlaceOfAnAnswerThatCameBeforeItsQuestion)
{
    const TalkativeServer server;
    HttpClient client(trustingSettings());
    EXPECT_EQ(fetched(client, server.origin() + "/kept"), answer(200, "kept"));
    QTest::qWait(150); // for what comes behind it

    EXPECT_EQ(fetched(client, server.origin() + "/next"), answer(200, "good"));

    EXPECT_EQ(server.connections(), 2);
}

TEST(HttpClientRepetition, isForEachStepOfARedirectionByItself)
{
    QAtomicInt cuts = 0;
    const HttpsServer server([&cuts](const ReceivedRequest &request) {
        const int step = request.target.mid(1).toInt();
        if (step > 0 && ++cuts % 2 == 1)
            return ServerAnswer{ .ending = Ending::CutBeforeAnswer };
        return ServerAnswer{ .status = step == 3 ? 200 : 302,
            .body = "step",
            .headers = { { "Location", "/" + QByteArray::number(step + 1) } } };
    });
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/0"), answer(200, "step"));

    EXPECT_EQ(server.requests().size(), 7);
}

} // namespace
} // namespace glimmet
