#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

using testing::ElementsAre;

using Ending = ServerAnswer::Ending;

constexpr int deadline = 10'000; // milliseconds

/// Tells the targets apart: "/silence" has no answer, "/middle" one that takes a minute.
ServerAnswer serve(const ReceivedRequest &request)
{
    if (request.target == "/silence")
        return { .ending = Ending::Silence };
    if (request.target == "/middle")
        return { .body = QByteArray(100'000, 'a'), .pieces = 60, .pause = 1s };
    return { .body = request.target };
}

long threads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

class HttpClientLifetime : public testing::Test {
protected:
    HttpRequest request(const QByteArray &target) const { return { server.origin() + target, {} }; }
    /// Asks for what no receiver shall hear of.
    void askInVain(const QByteArray &address)
    {
        client->get(
            { address, {} }, &receiver, asItIs, [](const HttpResult &) { ADD_FAILURE() << "called"; });
    }
    /// Destroys the client, and takes whatever it may have left behind.
    void destroyClient()
    {
        client.reset();
        QCoreApplication::processEvents();
    }

    const HttpsServer server{ serve };
    std::unique_ptr<HttpClient> client = std::make_unique<HttpClient>(trustingSettings());
    QObject receiver;
};

TEST_F(HttpClientLifetime, hasNoOtherThreadBeforeTheFirstRequest)
{
    client.reset();
    const long before = threads();

    const HttpClient idle;

    EXPECT_EQ(threads(), before);
}

TEST_F(HttpClientLifetime, readsOnAnotherThreadAndReportsOnTheMainOne)
{
    const QThread *readingThread = nullptr;
    const QThread *reportingThread = nullptr;
    const auto read = [](const HttpResult &) { return QThread::currentThread(); };

    for (const QByteArray &address : { server.origin() + "/", QByteArray("no address") }) {
        reportingThread = nullptr;
        client->get({ address, {} }, &receiver, read, [&](const QThread *thread) {
            readingThread = thread;
            reportingThread = QThread::currentThread();
        });
        ASSERT_TRUE(QTest::qWaitFor([&] { return reportingThread != nullptr; }, deadline));

        EXPECT_NE(readingThread, QThread::currentThread());
        EXPECT_EQ(reportingThread, QThread::currentThread());
    }
}

TEST_F(HttpClientLifetime, reportsToNobodyWhoIsGone)
{
    auto asker = std::make_unique<QObject>();
    QAtomicInt wasRead = 0;
    client->get(
        request("/"), asker.get(), [&wasRead](const HttpResult &) { return ++wasRead; },
        [](int) { ADD_FAILURE() << "called"; });

    asker.reset();

    ASSERT_TRUE(QTest::qWaitFor([&wasRead] { return wasRead == 1; }, deadline));
    // This one is reported after it.
    EXPECT_EQ(fetched(*client, server.origin() + "/"), answer(200, "/"));
}

TEST_F(HttpClientLifetime, reportsToNobodyWhoGoesWhileItIsReported)
{
    auto asker = std::make_unique<QObject>();
    int reports = 0;
    const auto report = [&](const HttpResult &) {
        ++reports;
        asker.reset();
    };

    client->get({ "no address", {} }, asker.get(), asItIs, report);
    client->get({ "no address", {} }, asker.get(), asItIs, report);
    fetched(*client, server.origin() + "/");

    EXPECT_EQ(reports, 1);
}

TEST_F(HttpClientLifetime, endsAtOnceWhileRequestsAreOut)
{
    QTcpServer mute;
    ASSERT_TRUE(mute.listen(QHostAddress::LocalHost));
    for (int i = 0; i < 20; ++i) {
        askInVain(server.origin() + "/silence");
        askInVain(server.origin() + "/middle");
        askInVain(originAt(mute.serverPort()) + "/");
    }
    ASSERT_TRUE(QTest::qWaitFor([this] { return server.requests().size() >= 6; }, deadline));
    QElapsedTimer elapsed;
    elapsed.start();

    destroyClient();

    EXPECT_LT(elapsed.elapsed(), 1000);
}

TEST_F(HttpClientLifetime, endsAtOnceAfterARequest)
{
    for (int i = 0; i < 20; ++i) {
        client = std::make_unique<HttpClient>(trustingSettings());
        askInVain(server.origin() + "/");
        askInVain("no address");

        destroyClient();
    }
}

TEST_F(HttpClientLifetime, endsWithResultsThatNobodyTookYet)
{
    QAtomicInt read = 0;
    for (int i = 0; i < 5; ++i)
        client->get(
            request("/"), &receiver, [&read](const HttpResult &) { return ++read; },
            [](int) { ADD_FAILURE() << "called"; });
    // Without letting events happen here, where they would be reported.
    while (read < 5)
        QThread::yieldCurrentThread();

    destroyClient();
}

TEST_F(HttpClientLifetime, endsWhileItsThreadIsBusy)
{
    std::atomic<bool> isReading = false;
    std::atomic<bool> shallEnd = false;
    std::atomic<bool> wasRead = false;
    const auto readForLong = [&](const HttpResult &) {
        isReading = true;
        while (!shallEnd)
            QThread::msleep(1);
        return wasRead.exchange(true);
    };
    client->get(request("/"), &receiver, readForLong, [](bool) { ADD_FAILURE() << "called"; });
    ASSERT_TRUE(QTest::qWaitFor([&isReading] { return isReading.load(); }, deadline));
    const long before = threads();
    QElapsedTimer elapsed;
    elapsed.start();

    client.reset();

    EXPECT_LT(elapsed.elapsed(), 1000);
    shallEnd = true;
    ASSERT_TRUE(QTest::qWaitFor([before] { return threads() < before; }, deadline));
    QCoreApplication::processEvents(); // What it posted comes here now.
    EXPECT_TRUE(wasRead);
}

TEST_F(HttpClientLifetime, endsWithinItsOwnReport)
{
    int reports = 0;
    for (int i = 0; i < 3; ++i)
        client->get(request("/"), &receiver, asItIs, [&](const HttpResult &) {
            ++reports;
            client.reset();
        });

    ASSERT_TRUE(QTest::qWaitFor([&reports] { return reports > 0; }, deadline));
    QCoreApplication::processEvents();

    EXPECT_EQ(reports, 1);
}

TEST_F(HttpClientLifetime, takesARequestWithinItsReport)
{
    QList<QByteArray> reports;
    std::function<void(const HttpResult &)> report = [&](const HttpResult &result) {
        reports.append(std::get<HttpAnswer>(result).body);
        if (reports.size() < 3)
            client->get(request("/" + QByteArray::number(reports.size())), &receiver, asItIs, report);
    };

    client->get(request("/0"), &receiver, asItIs, report);
    ASSERT_TRUE(QTest::qWaitFor([&reports] { return reports.size() == 3; }, deadline));

    EXPECT_THAT(reports, ElementsAre("/0", "/1", "/2"));
}

} // namespace
} // namespace glimmet
