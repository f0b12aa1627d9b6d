#include "tests/support/Gzip.h"
#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using testing::AnyOf;
using testing::Each;
using testing::IsEmpty;

using Ending = ServerAnswer::Ending;

ServerAnswer hello(const ReceivedRequest &)
{
    return { .body = "hello" };
}

/// A server of anything but HTTPS: it says `greeting` to whoever says something, and hangs up.
class ForeignServer {
public:
    explicit ForeignServer(const QByteArray &greeting)
    {
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this, greeting] {
            QTcpSocket *socket = m_server.nextPendingConnection();
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, greeting] {
                m_received += socket->readAll();
                socket->write(greeting);
                socket->disconnectFromHost();
            });
        });
        EXPECT_TRUE(m_server.listen(QHostAddress::LocalHost));
    }

    QByteArray origin() const { return originAt(m_server.serverPort()); }
    QByteArray received() const { return m_received; }

private:
    QTcpServer m_server;
    QByteArray m_received;
};

/// What Qt prints by itself meanwhile.
class PrintedByQt {
public:
    PrintedByQt()
    {
        s_messages.clear();
        m_before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &text) { s_messages.append(text); });
    }
    ~PrintedByQt() { qInstallMessageHandler(m_before); }
    Q_DISABLE_COPY_MOVE(PrintedByQt)

    QStringList messages() const { return s_messages; }

private:
    inline static QStringList s_messages;
    QtMessageHandler m_before;
};

TEST(HttpClientFailure, isAServerThatCannotBeReached)
{
    HttpsServer server(hello);
    HttpClient client(trustingSettings());

    server.close();

    EXPECT_EQ(fetched(client, server.origin() + "/"), HttpResult(TransportFailure::CannotConnect));
}

TEST(HttpClientFailure, isAServerThatCannotBeFound)
{
    // A proxy would look for it in the client's place.
    for (const char *name : { "https_proxy", "HTTPS_PROXY", "http_proxy", "HTTP_PROXY" })
        qunsetenv(name);
    HttpClient client(trustingSettings());

    EXPECT_EQ(
        fetched(client, "https://does-not-exist.invalid/"), HttpResult(TransportFailure::ServerNotFound));
}

TEST(HttpClientFailure, isAServerThatDoesNotEncrypt)
{
    const QByteArray noCommonCipher = "\x15\x03\x01\x00\x02\x02\x28"_ba; // TLS
    for (const QByteArray &greeting : { "HTTP/1.1 400 Bad Request\r\nContent-Length: 5\r\n\r\nhello"_ba,
             "garbage\r\n"_ba, noCommonCipher }) {
        const ForeignServer server(greeting);
        HttpClient client(trustingSettings());

        EXPECT_EQ(fetched(client, server.origin() + "/"), HttpResult(TransportFailure::NotSecure))
            << greeting.toPercentEncoding().toStdString();
    }
}

TEST(HttpClientFailure, isAServerThatHangsUpInsteadOfEncrypting)
{
    const ForeignServer server("");
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/"), HttpResult(TransportFailure::ConnectionLost));
}

TEST(HttpClientFailure, tellsNothingToAServerThatDoesNotEncrypt)
{
    const ForeignServer server("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n");
    HttpClient client(trustingSettings());

    fetched(client, server.origin() + "/path", { { "Authorization", "Bearer key" } });

    constexpr char tlsHandshake = 0x16;
    EXPECT_TRUE(server.received().startsWith(tlsHandshake));
    EXPECT_FALSE(server.received().contains("key") || server.received().contains("path"));
}

class HttpClientDistrust : public testing::TestWithParam<HttpsServer::Certificate> {};

TEST_P(HttpClientDistrust, asksNothing)
{
    const HttpsServer server(hello, GetParam());
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/", { { "Authorization", "Bearer key" } }),
        HttpResult(TransportFailure::ServerNotTrusted));
    EXPECT_THAT(fetchedAtOnce(client, QList<QByteArray>(20, server.origin() + "/")),
        Each(HttpResult(TransportFailure::ServerNotTrusted)));

    EXPECT_THAT(server.requests(), IsEmpty());
    EXPECT_GT(server.connections(), 0);
}

INSTANTIATE_TEST_SUITE_P(, HttpClientDistrust,
    testing::Values(HttpsServer::Certificate::OtherHost, HttpsServer::Certificate::Expired,
        HttpsServer::Certificate::UnknownAuthority),
    [](const auto &test) {
        using enum HttpsServer::Certificate;
        return test.param == OtherHost ? "ofAnotherHost"
            : test.param == Expired    ? "ofAnExpiredOne"
                                       : "ofAnUnknownAuthority";
    });

TEST(HttpClientTrust, isInTheAuthoritiesOfTheSystemUnlessSetOtherwise)
{
    const HttpsServer server(hello);
    HttpClient client;

    EXPECT_EQ(fetched(client, server.origin() + "/"), HttpResult(TransportFailure::ServerNotTrusted));
    EXPECT_THAT(server.requests(), IsEmpty());
}

TEST(HttpClientTrust, isInTheNameByWhichTheServerIsAsked)
{
    const HttpsServer good(hello);
    const HttpsServer other(hello, HttpsServer::Certificate::OtherHost);
    HttpClient client(trustingSettings());
    const auto byName = [](const HttpsServer &server) {
        return "https://localhost:" + QByteArray::number(server.port()) + "/";
    };

    EXPECT_EQ(fetched(client, byName(good)), answer(200, "hello"));
    EXPECT_EQ(fetched(client, byName(other)), HttpResult(TransportFailure::ServerNotTrusted));
    EXPECT_THAT(other.requests(), IsEmpty());
}

TEST(HttpClientFailure, isAConnectionThatBreaksBeforeTheAnswer)
{
    const HttpsServer server(
        [](const ReceivedRequest &) { return ServerAnswer{ .ending = Ending::CutBeforeAnswer }; });
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/"), HttpResult(TransportFailure::ConnectionLost));

    // Qt asks again by itself, which a GET may be.
    EXPECT_LE(server.requests().size(), 4);
}

TEST(HttpClientFailure, isNoKeptConnectionThatBroke)
{
    QAtomicInt count = 0;
    const HttpsServer server([&count](const ReceivedRequest &) {
        // The second request is the first one over a connection that has served before.
        return ServerAnswer{ .body = "hello",
            .ending = ++count == 2 ? Ending::CutBeforeAnswer : Ending::Complete };
    });
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "hello"));
    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "hello"));

    EXPECT_EQ(server.requests().size(), 3);
}

TEST(HttpClientRefusal, sendsNoHeaderOfMoreThanOneLine)
{
    const HttpsServer server(hello);
    HttpClient client(trustingSettings());

    for (const QByteArray &value : { "key\r\nX: y"_ba, "key\n"_ba, "\rkey"_ba, "ke\0y"_ba })
        EXPECT_EQ(fetched(client, server.origin() + "/", { { "Authorization", value } }),
            HttpResult(TransportFailure::InvalidHeader));

    EXPECT_EQ(server.connections(), 0);
}

TEST(HttpClientRefusal, asksAtNoAddressThatWouldHaveToBeMended)
{
    const HttpsServer server(hello);
    HttpClient client(trustingSettings());
    QByteArray plain = server.origin();
    plain.replace("https", "http");
    QByteArray named = server.origin();
    named.replace("https://", "https://user:password@");

    for (const QByteArray &address : { ""_ba, plain + "/", named + "/", server.origin() + "/a b",
             server.origin() + "/\xC3\xA9", server.origin() + "/^GSPC", server.origin() + "/%",
             server.origin() + "/\n", server.origin() + "/a\0b"_ba, "https://[v1.fe]/"_ba, "https://"_ba,
             "https:///a"_ba, "localhost"_ba, "/"_ba })
        EXPECT_EQ(fetched(client, address), HttpResult(TransportFailure::InvalidAddress))
            << address.toPercentEncoding().toStdString();

    EXPECT_EQ(server.connections(), 0);
}

TEST(HttpClientFailure, isNotPrintedByQt)
{
    const QByteArray tooLong(1000, 'a');
    const HttpsServer server([&tooLong](const ReceivedRequest &request) {
        if (request.target == "/silence")
            return ServerAnswer{ .ending = Ending::Silence };
        if (request.target == "/stall")
            return ServerAnswer{ .status = 500, .body = "hello", .pieces = 2, .pause = 60s };
        if (request.target == "/cut")
            return ServerAnswer{
                .body = tooLong, .headers = { { "Content-Encoding", "gzip" } }, .ending = Ending::CutInBody
            };
        return ServerAnswer{ .status = request.target.mid(1).toInt(), .body = tooLong };
    });
    const HttpsServer untrusted(hello, HttpsServer::Certificate::UnknownAuthority);
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = 400ms;
    const PrintedByQt printed;

    {
        HttpClient client(settings);
        for (const char *target : { "/silence", "/stall", "/cut", "/200", "/302", "/418", "/500" })
            EXPECT_TRUE(std::holds_alternative<TransportFailure>(
                fetched(client, { .address = server.origin() + target, .largestBody = 100 })))
                << target;
        fetched(client, untrusted.origin() + "/");
        fetched(client, "no address");
    }

    EXPECT_THAT(printed.messages(), IsEmpty());
}

TEST(HttpClientFailure, isThatOfOneRequestAloneWhereOnlyAnInterimAnswerComes)
{
    HttpsServer server([](const ReceivedRequest &request) {
        if (request.target == "/early")
            return ServerAnswer{ .status = 103 };
        return ServerAnswer{ .body = "good" };
    });
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = 400ms;
    HttpClient client(settings);

    const auto results = fetchedAtOnce(client, { server.origin() + "/good", server.origin() + "/early" });

    EXPECT_EQ(results[0], answer(200, "good"));
    EXPECT_EQ(results[1], HttpResult(TransportFailure::TimedOut));
    EXPECT_EQ(fetched(client, server.origin() + "/good"), answer(200, "good"));
}

} // namespace
} // namespace glimmet
