#include "tests/platform/bus/SilencingRelay.h"
#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

using testing::Each;

constexpr int deadline = 10'000; // milliseconds

/// A port without a server.
quint16 freePort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

/// nghttpd with the certificate of the tests' servers; it serves the files of a folder.
class Http2Server {
public:
    Http2Server()
    {
        write(u"small"_s, "a small file");
        write(u"large"_s, QByteArray(3'000'000, 'a'));
        start();
    }
    ~Http2Server()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(Http2Server)

    quint16 port() const { return m_port; }
    QByteArray origin() const { return originAt(m_port); }
    /// Whether the server says `text` within the deadline.
    bool says(const QByteArray &text)
    {
        return QTest::qWaitFor([&] { return countOf(text) > 0; }, deadline);
    }
    qsizetype countOf(const QByteArray &text)
    {
        m_log += m_process.readAll();
        return m_log.count(text);
    }
    void restart()
    {
        m_process.kill();
        m_process.waitForFinished();
        m_log.clear();
        start();
    }

private:
    void write(const QString &name, const QByteArray &content)
    {
        QFile file(m_folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void start()
    {
        const QString certificates = QStringLiteral(GLIMMET_TEST_CERTIFICATES);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        m_process.start(u"/usr/sbin/nghttpd"_s,
            { u"--verbose"_s, u"--address=127.0.0.1"_s, u"--htdocs="_s + m_folder.path(),
                QString::number(m_port), certificates + u"/good.key"_s, certificates + u"/good.pem"_s });
        ASSERT_TRUE(says("listen 127.0.0.1:" + QByteArray::number(m_port))) << m_log.toStdString();
    }

    QTemporaryDir m_folder;
    quint16 m_port = freePort();
    QProcess m_process;
    QByteArray m_log;
};

class HttpClientHttp2 : public testing::Test {
protected:
    HttpResult get(const QByteArray &target) { return fetched(client, server.origin() + target); }

    Http2Server server;
    HttpClient client{ trustingSettings() };
};

TEST_F(HttpClientHttp2, isSpokenWhereTheServerSpeaksIt)
{
    EXPECT_EQ(get("/small"), answer(200, "a small file"));

    EXPECT_TRUE(server.says("The negotiated protocol: h2"));
    EXPECT_TRUE(server.says("recv (stream_id=1) :path: /small"));
    EXPECT_TRUE(server.says("recv (stream_id=1) accept-encoding: gzip"));
}

TEST_F(HttpClientHttp2, hasTheSameAnswers)
{
    EXPECT_EQ(get("/large"), answer(200, QByteArray(3'000'000, 'a')));
    EXPECT_EQ(std::get<HttpAnswer>(get("/nothing")).status, 404);
}

TEST_F(HttpClientHttp2, bearsTheHeaders)
{
    EXPECT_EQ(fetched(client, server.origin() + "/small",
                  { { "Authorization", "Bearer key" }, { "User-Agent", "Mozilla/5.0" } }),
        answer(200, "a small file"));

    EXPECT_TRUE(server.says(" authorization: Bearer key\n"));
    EXPECT_TRUE(server.says(" user-agent: Mozilla/5.0\n"));
    EXPECT_EQ(server.countOf("user-agent:"), 1);
}

TEST_F(HttpClientHttp2, needsOneConnectionForManyRequests)
{
    const QList<QByteArray> addresses(200, server.origin() + "/small");

    EXPECT_THAT(fetchedAtOnce(client, addresses), Each(answer(200, "a small file")));

    EXPECT_EQ(server.countOf("The negotiated protocol: h2"), 1);
}

TEST_F(HttpClientHttp2, limitsTheBody)
{
    HttpSettings settings = trustingSettings();
    settings.largestBody = 1'000'000;
    HttpClient limited(settings);

    EXPECT_EQ(fetched(limited, server.origin() + "/large"), HttpResult(TransportFailure::ConnectionLost));
    EXPECT_EQ(fetched(limited, server.origin() + "/small"), answer(200, "a small file"));
}

TEST_F(HttpClientHttp2, connectsAnewAfterTheServerWasGone)
{
    EXPECT_EQ(get("/small"), answer(200, "a small file"));

    server.restart();

    EXPECT_EQ(get("/small"), answer(200, "a small file"));
}

TEST_F(HttpClientHttp2, connectsAnewAfterItsConnectionFellSilent)
{
    SilencingRelay relay(server.port());
    HttpSettings settings = trustingSettings();
    settings.idleTimeout = 400ms;
    HttpClient impatient(settings);
    EXPECT_EQ(fetched(impatient, relay.origin() + "/small"), answer(200, "a small file"));
    relay.silence();

    EXPECT_EQ(fetched(impatient, relay.origin() + "/small"), HttpResult(TransportFailure::TimedOut));
    EXPECT_EQ(fetched(impatient, relay.origin() + "/small"), answer(200, "a small file"));

    EXPECT_EQ(relay.connections(), 2);
}

} // namespace
} // namespace glimmet
