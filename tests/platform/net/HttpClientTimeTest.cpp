#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QElapsedTimer>
#include <QTcpServer>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

using testing::Each;

using Ending = ServerAnswer::Ending;

const QByteArray body(10'000, 'a');

struct Timed {
    HttpResult result;
    qint64 milliseconds;
};

Timed timed(const QByteArray &address, const HttpSettings &settings)
{
    HttpClient client(settings);
    QElapsedTimer elapsed;
    elapsed.start();
    HttpResult result = fetched(client, address);
    return { std::move(result), elapsed.elapsed() };
}

Timed timed(const QByteArray &address, std::chrono::milliseconds idleTimeout)
{
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = idleTimeout;
    return timed(address, settings);
}

Timed timed(const ServerAnswer &answer, std::chrono::milliseconds idleTimeout = 400ms)
{
    const HttpsServer server([&answer](const ReceivedRequest &) { return answer; });
    return timed(server.origin() + "/", idleTimeout);
}

/// Takes no connection: there is room for one, which is taken, and the system drops what comes then.
class FullServer {
public:
    FullServer()
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto *const generic = reinterpret_cast<sockaddr *>(&address);
        EXPECT_EQ(bind(m_listening, generic, length), 0);
        EXPECT_EQ(listen(m_listening, 0), 0);
        EXPECT_EQ(getsockname(m_listening, generic, &length), 0);
        EXPECT_EQ(connect(m_only, generic, length), 0);
        m_port = ntohs(address.sin_port);
    }
    ~FullServer()
    {
        close(m_only);
        close(m_listening);
    }
    Q_DISABLE_COPY_MOVE(FullServer)

    QByteArray origin() const { return originAt(m_port); }

private:
    int m_listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int m_only = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    quint16 m_port = 0;
};

/// After 400 milliseconds, give or take what a timer may be early and a busy machine late.
void expectTimeOut(const Timed &timed, TransportFailure failure = TransportFailure::TimedOut)
{
    EXPECT_EQ(timed.result, HttpResult(failure));
    EXPECT_GT(timed.milliseconds, 300);
    EXPECT_LT(timed.milliseconds, 2000);
}

TEST(HttpClientTime, isLimitedAsTheProgramHasItUnlessSetOtherwise)
{
    EXPECT_EQ(HttpSettings().idleTimeout, 15s);
    EXPECT_EQ(HttpSettings().longestAnswer, 5min);
    EXPECT_EQ(HttpSettings().longestWait, 1min);
    EXPECT_EQ(HttpSettings().connectionsKept, 2min);
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

TEST(HttpClientTime, runsOutWhileThereIsNoConnectionWhichIsToldApart)
{
    const FullServer server;

    expectTimeOut(timed(server.origin() + "/", 400ms), TransportFailure::ConnectingTimedOut);
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

TEST(HttpClientTime, runsOutForAnAnswerThatComesTooSlowlyAsAWhole)
{
    const HttpsServer server(
        [](const ReceivedRequest &) { return ServerAnswer{ .body = body, .pieces = 600, .pause = 20ms }; });
    HttpSettings settings = trustingSettings();
    settings.longestAnswer = 400ms;

    expectTimeOut(timed(server.origin() + "/", settings));
}

/// Never answers at "/silence", and answers everything else in 150 milliseconds.
ServerAnswer serve(const ReceivedRequest &request)
{
    if (request.target == "/silence")
        return { .ending = Ending::Silence };
    return { .body = "hello", .delay = 150ms };
}

TEST(HttpClientWaiting, isNoSilence)
{
    const HttpsServer server(serve);
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = 400ms;
    HttpClient client(settings);

    EXPECT_THAT(
        fetchedAtOnce(client, QList<QByteArray>(36, server.origin() + "/")), Each(answer(200, "hello")));
}

TEST(HttpClientWaiting, runsOutToo)
{
    const HttpsServer server(serve);
    HttpSettings settings = trustingSettings();
    settings.longestWait = 400ms;
    HttpClient client(settings);
    QObject receiver;
    for (int i = 0; i < 6; ++i)
        client.get({ server.origin() + "/silence" }, &receiver, asItIs, [](const HttpResult &) {});
    QElapsedTimer elapsed;
    elapsed.start();

    HttpResult result = fetched(client, server.origin() + "/");

    expectTimeOut({ std::move(result), elapsed.elapsed() });
    EXPECT_EQ(server.requests().size(), 6);
}

TEST(HttpClientWaiting, isForAConnectionThatIsNotSilent)
{
    const HttpsServer server(serve);
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = 400ms;
    HttpClient client(settings);
    QList<QByteArray> addresses(6, server.origin() + "/silence");
    addresses.append(server.origin() + "/");

    EXPECT_EQ(fetchedAtOnce(client, addresses).last(), answer(200, "hello"));
}

TEST(HttpClientWaiting, isNotForOtherServers)
{
    const HttpsServer silent(serve);
    const HttpsServer server(serve);
    HttpClient client(trustingSettings());
    QObject receiver;
    for (int i = 0; i < 30; ++i)
        client.get({ silent.origin() + "/silence" }, &receiver, asItIs, [](const HttpResult &) {});

    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "hello"));
}

} // namespace
} // namespace glimmet
