#include "tests/support/HttpsServer.h"

#include "tests/support/Printing.h"

#include <QElapsedTimer>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>

#include <gtest/gtest.h>

#include <vector>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using Ending = ServerAnswer::Ending;

constexpr int deadline = 10'000; // milliseconds, for what takes a few

/// A client's end of a connection, which trusts the tests' authority alone.
class Client {
public:
    explicit Client(const HttpsServer &server, const QString &host = u"127.0.0.1"_s)
    {
        QSslConfiguration encryption = QSslConfiguration::defaultConfiguration();
        encryption.setCaCertificates(QSslCertificate::fromData(HttpsServer::authority()));
        m_socket.setSslConfiguration(encryption);
        m_socket.connectToHostEncrypted(host, server.port());
    }

    /// Connected, and to a server that it trusts.
    bool isConnected()
    {
        if (!m_socket.isEncrypted())
            m_socket.waitForEncrypted(deadline);
        return m_socket.isEncrypted() && m_socket.state() == QAbstractSocket::ConnectedState;
    }
    bool isEnded()
    {
        return m_socket.state() == QAbstractSocket::UnconnectedState
            || m_socket.waitForDisconnected(deadline);
    }
    QAbstractSocket::SocketError error() const { return m_socket.error(); }
    QSslError::SslError reasonOfDistrust() const
    {
        const QList<QSslError> errors = m_socket.sslHandshakeErrors();
        return errors.isEmpty() ? QSslError::NoError : errors.first().error();
    }

    void ask(const QByteArray &target)
    {
        m_socket.write("GET " + target + " HTTP/1.1\r\nHost: localhost\r\nX-Asked-By: a test\r\n\r\n");
        m_socket.flush();
    }
    /// What came within that time: silence is nothing.
    QByteArray receivedWithin(std::chrono::milliseconds time)
    {
        m_socket.waitForReadyRead(static_cast<int>(time.count()));
        return m_received += m_socket.readAll();
    }
    /// All that has come once `end` has; empty where it does not.
    QByteArray receivedUpTo(const QByteArray &end)
    {
        while (!m_received.endsWith(end)) {
            if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(deadline))
                return {};
            m_received += m_socket.readAll();
        }
        return std::exchange(m_received, {});
    }
    QByteArray receivedUpToTheEnd()
    {
        return isEnded() ? m_received += m_socket.readAll() : QByteArray("still connected");
    }

private:
    QSslSocket m_socket;
    QByteArray m_received;
};

ServerAnswer echo(const ReceivedRequest &request)
{
    return { .body = "answer to " + request.target };
}

ServerAnswer slowOrEcho(const ReceivedRequest &request, const ServerAnswer &slow)
{
    return request.target == "/slow" ? slow : echo(request);
}

TEST(HttpsServer, sendsWhatItsHandlerSays)
{
    const HttpsServer server([](const ReceivedRequest &) {
        return ServerAnswer{ .status = 503, .body = "body", .headers = { { "Retry-After", "7" } } };
    });
    Client client(server);
    ASSERT_TRUE(client.isConnected());

    client.ask("/");

    EXPECT_EQ(
        client.receivedUpTo("body"), "HTTP/1.1 503 \r\nRetry-After: 7\r\nContent-Length: 4\r\n\r\nbody");
}

TEST(HttpsServer, recordsRequestsAsTheyArrived)
{
    const HttpsServer server(echo);
    Client client(server);
    ASSERT_TRUE(client.isConnected());

    client.ask("/a%20b?c=d&e");
    ASSERT_FALSE(client.receivedUpTo("answer to /a%20b?c=d&e").isEmpty());

    ASSERT_EQ(server.requests().size(), 1);
    const ReceivedRequest request = server.requests().first();
    EXPECT_EQ(request.method, "GET");
    EXPECT_EQ(request.target, "/a%20b?c=d&e");
    EXPECT_EQ(request.header("x-asked-BY"), "a test");
    EXPECT_TRUE(request.header("Authorization").isEmpty());
}

TEST(HttpsServer, servesSeveralRequestsOverOneConnection)
{
    const HttpsServer server(echo);
    Client client(server);
    ASSERT_TRUE(client.isConnected());

    client.ask("/first");
    EXPECT_FALSE(client.receivedUpTo("answer to /first").isEmpty());
    client.ask("/second");
    client.ask("/third");
    EXPECT_FALSE(client.receivedUpTo("answer to /third").isEmpty());

    EXPECT_EQ(server.requests().size(), 3);
    EXPECT_EQ(server.connections(), 1);
}

TEST(HttpsServer, endsAConnectionAfterTheAnswerThatSaysSo)
{
    const HttpsServer server([](const ReceivedRequest &) {
        return ServerAnswer{ .body = "last", .headers = { { "Connection", "close" } } };
    });
    Client client(server);
    ASSERT_TRUE(client.isConnected());

    client.ask("/");

    EXPECT_TRUE(client.receivedUpToTheEnd().endsWith("\r\n\r\nlast"));
}

TEST(HttpsServer, cutsABodyInHalf)
{
    const QByteArray half(3'000'000, 'h');
    const HttpsServer server([&half](const ReceivedRequest &) {
        return ServerAnswer{ .body = half + half, .ending = Ending::CutInBody, .pieces = 3 };
    });
    Client client(server);
    ASSERT_TRUE(client.isConnected());

    client.ask("/");

    EXPECT_TRUE(client.receivedUpToTheEnd() == "HTTP/1.1 200 \r\nContent-Length: 6000000\r\n\r\n" + half);
}

TEST(HttpsServer, cutsAConnectionBeforeTheAnswer)
{
    const HttpsServer server(
        [](const ReceivedRequest &) { return ServerAnswer{ .ending = Ending::CutBeforeAnswer }; });
    Client client(server);
    ASSERT_TRUE(client.isConnected());

    client.ask("/");

    EXPECT_EQ(client.receivedUpToTheEnd(), "");
    EXPECT_EQ(server.requests().size(), 1);
}

TEST(HttpsServer, staysSilentWhileItServesAnotherConnection)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        return slowOrEcho(request, { .body = "not sent", .ending = Ending::Silence });
    });
    Client silent(server);
    Client served(server);
    ASSERT_TRUE(silent.isConnected() && served.isConnected());

    silent.ask("/slow");
    served.ask("/quick");

    EXPECT_FALSE(served.receivedUpTo("answer to /quick").isEmpty());
    EXPECT_EQ(silent.receivedWithin(200ms), "");
    EXPECT_TRUE(silent.isConnected());
    EXPECT_EQ(server.requests().size(), 2);
}

TEST(HttpsServer, letsAnAnswerWaitWithoutHoldingUpAnotherConnection)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        return slowOrEcho(request, { .body = "late", .delay = 600ms });
    });
    Client slow(server);
    Client quick(server);
    ASSERT_TRUE(slow.isConnected() && quick.isConnected());
    QElapsedTimer elapsed;
    elapsed.start();

    slow.ask("/slow");
    quick.ask("/quick");

    EXPECT_FALSE(quick.receivedUpTo("answer to /quick").isEmpty());
    EXPECT_EQ(slow.receivedWithin(0ms), "");
    EXPECT_FALSE(slow.receivedUpTo("late").isEmpty());
    EXPECT_GE(elapsed.elapsed(), 600);
}

TEST(HttpsServer, sendsABodyInPiecesWithPausesBetweenThem)
{
    const HttpsServer server([](const ReceivedRequest &) {
        return ServerAnswer{ .body = "abcdefg", .pieces = 3, .pause = 300ms };
    });
    Client client(server);
    ASSERT_TRUE(client.isConnected());
    QElapsedTimer elapsed;
    elapsed.start();

    client.ask("/");

    EXPECT_TRUE(client.receivedWithin(10s).endsWith("\r\n\r\nab"));
    EXPECT_TRUE(client.receivedUpTo("efg").endsWith("\r\n\r\nabcdefg"));
    EXPECT_GE(elapsed.elapsed(), 600);
}

TEST(HttpsServer, refusesConnectionsWhileItIsClosed)
{
    HttpsServer server(echo);
    Client before(server);
    ASSERT_TRUE(before.isConnected());

    server.close();
    Client meanwhile(server);

    EXPECT_TRUE(before.isEnded());
    EXPECT_FALSE(meanwhile.isConnected());
    EXPECT_EQ(meanwhile.error(), QAbstractSocket::ConnectionRefusedError);
    EXPECT_EQ(server.connections(), 1);
}

TEST(HttpsServer, servesAtTheSamePortAgain)
{
    HttpsServer server(echo);
    const QByteArray origin = server.origin();

    server.close();
    server.reopen();
    Client client(server);
    ASSERT_TRUE(client.isConnected());
    client.ask("/again");

    EXPECT_FALSE(client.receivedUpTo("answer to /again").isEmpty());
    EXPECT_EQ(server.origin(), origin);
}

TEST(HttpsServer, servesTwoHundredConnectionsSideBySide)
{
    const HttpsServer server(echo);
    std::vector<std::unique_ptr<Client>> clients;
    for (int i = 0; i < 200; ++i)
        clients.push_back(std::make_unique<Client>(server));

    for (const auto &client : clients)
        ASSERT_TRUE(client->isConnected());
    for (const auto &client : clients)
        client->ask("/");

    for (const auto &client : clients)
        EXPECT_FALSE(client->receivedUpTo("answer to /").isEmpty());
    EXPECT_EQ(server.connections(), 200);
    EXPECT_EQ(server.requests().size(), 200);
}

TEST(HttpsServer, goesInTheMiddleOfItsAnswers)
{
    auto server = std::make_unique<HttpsServer>([](const ReceivedRequest &request) {
        return slowOrEcho(request, { .body = QByteArray(8'000'000, 'x'), .pieces = 1000, .pause = 1ms });
    });
    Client midway(*server);
    Client idle(*server);
    ASSERT_TRUE(midway.isConnected() && idle.isConnected());
    midway.ask("/slow");
    ASSERT_FALSE(midway.receivedWithin(10s).isEmpty());

    server.reset();

    EXPECT_TRUE(midway.isEnded());
    EXPECT_TRUE(idle.isEnded());
}

struct Trust {
    HttpsServer::Certificate certificate;
    QString host;
    QSslError::SslError reason;
    const char *name;
};

class HttpsServerCertificate : public testing::TestWithParam<Trust> {};

TEST_P(HttpsServerCertificate, isTrustedOrNotForTheReasonInItsName)
{
    const HttpsServer server(echo, GetParam().certificate);
    Client client(server, GetParam().host);

    EXPECT_EQ(client.isConnected(), GetParam().reason == QSslError::NoError);
    EXPECT_EQ(client.reasonOfDistrust(), GetParam().reason);
}

using enum HttpsServer::Certificate;

INSTANTIATE_TEST_SUITE_P(, HttpsServerCertificate,
    testing::Values(Trust{ Good, u"localhost"_s, QSslError::NoError, "goodForTheName" },
        Trust{ Good, u"127.0.0.1"_s, QSslError::NoError, "goodForTheAddress" },
        Trust{ OtherHost, u"localhost"_s, QSslError::HostNameMismatch, "otherHost" },
        Trust{ Expired, u"localhost"_s, QSslError::CertificateExpired, "expired" },
        Trust{ UnknownAuthority, u"localhost"_s, QSslError::UnableToGetLocalIssuerCertificate,
            "unknownAuthority" }),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace glimmet
