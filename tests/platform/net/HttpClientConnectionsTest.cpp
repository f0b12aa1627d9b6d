#include "tests/platform/bus/SilencingRelay.h"
#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QFile>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

using testing::Each;

ServerAnswer echo(const ReceivedRequest &request)
{
    return { .body = "answer to " + request.target };
}

HttpSettings impatientSettings()
{
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = 400ms;
    return settings;
}

class HttpClientConnections : public testing::Test {
protected:
    HttpsServer server{ echo };
    HttpClient client{ trustingSettings() };
};

TEST_F(HttpClientConnections, areUsedAgain)
{
    for (int i = 0; i < 20; ++i) {
        const QByteArray target = "/" + QByteArray::number(i);
        EXPECT_EQ(fetched(client, server.origin() + target), answer(200, "answer to " + target));
    }

    EXPECT_EQ(server.connections(), 1);
}

TEST_F(HttpClientConnections, areAFewForManyRequestsAtOnceWhichAreAllAnswered)
{
    QList<QByteArray> addresses;
    QList<HttpResult> answers;
    for (int i = 0; i < 200; ++i) {
        addresses.append(server.origin() + "/" + QByteArray::number(i));
        answers.append(answer(200, "answer to /" + QByteArray::number(i)));
    }

    EXPECT_EQ(fetchedAtOnce(client, addresses), answers);

    EXPECT_EQ(server.requests().size(), 200);
    EXPECT_LE(server.connections(), 6);
}

TEST_F(HttpClientConnections, areMadeAnewAfterTheServerWasGone)
{
    EXPECT_EQ(fetched(client, server.origin() + "/1"), answer(200, "answer to /1"));

    server.close();
    EXPECT_EQ(fetched(client, server.origin() + "/2"), HttpResult(TransportFailure::CannotConnect));
    server.reopen();

    EXPECT_EQ(fetched(client, server.origin() + "/3"), answer(200, "answer to /3"));
}

TEST_F(HttpClientConnections, areMadeAnewAfterTheServerWasGoneForAMoment)
{
    EXPECT_EQ(fetched(client, server.origin() + "/1"), answer(200, "answer to /1"));

    server.close();
    server.reopen();

    EXPECT_EQ(fetched(client, server.origin() + "/2"), answer(200, "answer to /2"));
}

TEST_F(HttpClientConnections, areMadeAnewAfterOneFellSilent)
{
    SilencingRelay relay(server.port());
    HttpClient impatient(impatientSettings());
    // Several, of which each request would find out one at a time.
    EXPECT_THAT(fetchedAtOnce(impatient, QList<QByteArray>(6, relay.origin() + "/")),
        Each(answer(200, "answer to /")));
    relay.silence();

    EXPECT_EQ(fetched(impatient, relay.origin() + "/"), HttpResult(TransportFailure::TimedOut));
    EXPECT_EQ(fetched(impatient, relay.origin() + "/"), answer(200, "answer to /"));
}

/// Whether a connection to that port of this machine is there.
bool isConnected(quint16 port)
{
    QFile connections(QStringLiteral("/proc/self/net/tcp"));
    EXPECT_TRUE(connections.open(QIODevice::ReadOnly));
    // Both addresses, and the state: established.
    const QByteArray other = ':' + QByteArray::number(port, 16).toUpper().rightJustified(4, '0') + " 01 ";
    return connections.readAll().contains(other);
}

TEST(HttpClientKeptConnections, areLetGoAfterAWhileWithoutRequests)
{
    const HttpsServer server(echo);
    HttpSettings settings = trustingSettings();
    settings.connectionsKept = 500ms;
    HttpClient client(settings);

    EXPECT_THAT(
        fetchedAtOnce(client, QList<QByteArray>(6, server.origin() + "/")), Each(answer(200, "answer to /")));
    EXPECT_TRUE(isConnected(server.port()));

    EXPECT_TRUE(QTest::qWaitFor([&server] { return !isConnected(server.port()); }));
    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "answer to /"));
}

TEST(HttpClientKeptConnections, areNotUsedAfterTheMachineSlept)
{
    const HttpsServer server(echo);
    std::atomic<std::chrono::milliseconds> asleep{ 1h };
    HttpSettings settings = trustingSettings();
    settings.timeAsleep = [&asleep] { return asleep.load(); };
    HttpClient client(settings);
    EXPECT_EQ(fetched(client, server.origin() + "/1"), answer(200, "answer to /1"));
    EXPECT_EQ(fetched(client, server.origin() + "/2"), answer(200, "answer to /2"));
    EXPECT_EQ(server.connections(), 1);

    asleep = 2h;

    EXPECT_EQ(fetched(client, server.origin() + "/3"), answer(200, "answer to /3"));
    EXPECT_EQ(fetched(client, server.origin() + "/4"), answer(200, "answer to /4"));
    EXPECT_EQ(server.connections(), 2);
}

TEST(HttpClientKeptConnections, giveTheirPlacesUpToWhatIsAskedAfterASleep)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        return ServerAnswer{
            .body = request.target, .pieces = request.target == "/slow" ? 4 : 1, .pause = 100ms
        };
    });
    std::atomic<std::chrono::milliseconds> asleep{ 0ms };
    HttpSettings settings = trustingSettings();
    settings.timeAsleep = [&asleep] { return asleep.load(); };
    HttpClient client(settings);
    QObject receiver;
    int answers = 0;
    for (int i = 0; i < 9; ++i)
        client.get({ server.origin() + "/slow" }, &receiver, asItIs, [&](const HttpResult &result) {
            EXPECT_EQ(result, answer(200, "/slow"));
            ++answers;
        });
    ASSERT_TRUE(QTest::qWaitFor([&server] { return server.requests().size() == 6; }));

    asleep = 1h;

    // Six are out, and three wait.
    EXPECT_EQ(fetched(client, server.origin() + "/last"), answer(200, "/last"));
    EXPECT_TRUE(QTest::qWaitFor([&answers] { return answers == 9; }));
    EXPECT_GT(server.connections(), 6);
}

TEST(HttpClientTimeOut, leavesKeptConnectionsAloneWhereItWasNoSilence)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        return ServerAnswer{
            .body = QByteArray(1000, 'a'), .pieces = request.target == "/drip" ? 1000 : 2, .pause = 50ms
        };
    });
    HttpSettings settings = trustingSettings();
    settings.longestAnswer = 400ms;
    HttpClient client(settings);
    const HttpResult whole = answer(200, QByteArray(1000, 'a'));
    EXPECT_THAT(fetchedAtOnce(client, QList<QByteArray>(2, server.origin() + "/")), Each(whole));
    ASSERT_EQ(server.connections(), 2);

    EXPECT_EQ(fetched(client, server.origin() + "/drip"), HttpResult(TransportFailure::TimedOut));

    EXPECT_EQ(fetched(client, server.origin() + "/"), whole);
    EXPECT_EQ(server.connections(), 2);
}

TEST(HttpClientTimeOut, leavesRequestsInThePlacesOfThoseThatAreStillOut)
{
    std::atomic<int> asked = 0;
    std::atomic<int> over = 0;
    std::atomic<int> most = 0;
    const HttpsServer server([&](const ReceivedRequest &request) {
        most = std::max(most.load(), ++asked - over);
        if (request.target == "/silence")
            return ServerAnswer{ .ending = ServerAnswer::Ending::Silence };
        return ServerAnswer{ .body = QByteArray(1000, 'a'), .pieces = 5, .pause = 150ms };
    });
    HttpClient client(impatientSettings());
    QObject receiver;
    const auto ask = [&](const QByteArray &target) {
        client.get(
            { server.origin() + target }, &receiver,
            [&over](const HttpResult &result) {
                ++over;
                return result;
            },
            [](const HttpResult &) {});
    };

    for (int i = 0; i < 5; ++i) {
        ask("/silence");
        for (int j = 0; j < 5; ++j)
            ask("/slow");
    }

    EXPECT_TRUE(QTest::qWaitFor([&over] { return over == 30; }, 20'000));
    EXPECT_EQ(most, 6);
}

TEST(HttpClientTimeOut, leavesTheOtherRequestsAlone)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        if (request.target == "/silence")
            return ServerAnswer{ .ending = ServerAnswer::Ending::Silence };
        return ServerAnswer{ .body = QByteArray(1000, 'a'), .pieces = 8, .pause = 150ms };
    });
    HttpClient client(impatientSettings());

    const auto results = fetchedAtOnce(client, { server.origin() + "/silence", server.origin() + "/slow" });

    EXPECT_EQ(results[0], HttpResult(TransportFailure::TimedOut));
    EXPECT_EQ(results[1], answer(200, QByteArray(1000, 'a')));
}

} // namespace
} // namespace glimmet
