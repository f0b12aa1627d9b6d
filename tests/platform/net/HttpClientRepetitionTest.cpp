#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QFile>
#include <QRegularExpression>
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

/// Answers "/kept" with `length` bytes, and behind that, on the same connection, sends an answer to nothing:
/// at once or a moment later.
class TalkativeServer : public HttpsServer {
public:
    TalkativeServer(qsizetype length, int pieces)
        : HttpsServer([=](const ReceivedRequest &request) {
            if (request.target != "/kept")
                return ServerAnswer{ .body = "good" };
            return ServerAnswer{
                .pieces = pieces, .pause = 50ms, .raw = answerOf(length) + answerOf(length)
            };
        })
    {
    }

private:
    static QByteArray answerOf(qsizetype length)
    {
        return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(length) + "\r\n\r\n"
            + QByteArray(length, 'a');
    }
};

TEST(HttpClientRepetition, isInThePlaceOfAnAnswerThatCameTogetherWithTheOneBefore)
{
    // Where both are in one record of the encryption, the second is decrypted before it is asked for.
    for (const qsizetype length : { 4, 4'000, 20'000, 100'000 }) {
        const TalkativeServer server(length, 1);
        HttpClient client(trustingSettings());
        EXPECT_EQ(fetched(client, server.origin() + "/kept"), answer(200, QByteArray(length, 'a')));

        EXPECT_EQ(fetched(client, server.origin() + "/next"), answer(200, "good")) << length;
    }
}

/// Whether something came from that port of this machine that is not read yet.
bool hasArrived(quint16 port)
{
    QFile connections(QStringLiteral("/proc/self/net/tcp"));
    EXPECT_TRUE(connections.open(QIODevice::ReadOnly));
    // The other end, the state (established), and the bytes to send and to read.
    const QRegularExpression unread(
        QStringLiteral(":%1 01 0+:0*[1-9A-F]").arg(port, 4, 16, QLatin1Char('0')).toUpper());
    return unread.match(QString::fromLatin1(connections.readAll())).hasMatch();
}

TEST(HttpClientRepetition, isInThePlaceOfAnAnswerThatCameBeforeItsQuestion)
{
    const TalkativeServer server(4, 2);
    HttpClient client(trustingSettings());
    EXPECT_EQ(fetched(client, server.origin() + "/kept"), answer(200, "aaaa"));
    ASSERT_TRUE(QTest::qWaitFor([&server] { return hasArrived(server.port()); }));

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
