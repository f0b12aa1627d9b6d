#include "tests/platform/bus/SilencingRelay.h"
#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

/// How many sockets this process has open, those of its servers too.
qsizetype openSockets()
{
    const QDir descriptors(QStringLiteral("/proc/self/fd"));
    const QFileInfoList links = descriptors.entryInfoList(QDir::System | QDir::Files);
    return std::count_if(links.begin(), links.end(),
        [](const QFileInfo &link) { return link.symLinkTarget().contains(QLatin1String("socket:")); });
}

TEST(HttpClientKeptConnections, areLetGoAfterAWhileWithoutRequests)
{
    const HttpsServer server(echo);
    HttpSettings settings = trustingSettings();
    settings.connectionsKept = 50ms;
    HttpClient client(settings);
    const qsizetype before = openSockets();

    EXPECT_THAT(
        fetchedAtOnce(client, QList<QByteArray>(6, server.origin() + "/")), Each(answer(200, "answer to /")));

    EXPECT_TRUE(QTest::qWaitFor([before] { return openSockets() == before; }));
    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "answer to /"));
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
