#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

using testing::IsEmpty;
using testing::Pair;

const HttpHeaders key{ { "Authorization", "Bearer key" } };

QList<QByteArray> targetsOf(const HttpsServer &server)
{
    QList<QByteArray> targets;
    for (const ReceivedRequest &request : server.requests())
        targets.append(request.target);
    return targets;
}

/// A server that sends from "/start" to `location` and answers everything else by its target.
class RedirectingServer : public HttpsServer {
public:
    explicit RedirectingServer(const QByteArray &location, int status = 302)
        : HttpsServer([location, status](const ReceivedRequest &request) {
            if (request.target != "/start")
                return ServerAnswer{ .body = "at " + request.target };
            return ServerAnswer{ .status = status, .body = "moved", .headers = { { "Location", location } } };
        })
    {
    }
};

class HttpClientRedirection : public testing::TestWithParam<int> {
protected:
    HttpClient client{ trustingSettings() };
};

TEST_P(HttpClientRedirection, isFollowedToTheSameOriginWithTheSameHeaders)
{
    const RedirectingServer server("/there?a=b#c", GetParam());

    EXPECT_EQ(fetched(client, server.origin() + "/start", key), answer(200, "at /there?a=b"));

    ASSERT_EQ(targetsOf(server), QList<QByteArray>({ "/start", "/there?a=b" }));
    for (const ReceivedRequest &request : server.requests()) {
        EXPECT_EQ(request.method, "GET");
        EXPECT_EQ(request.header(key.first().first), key.first().second);
    }
}

TEST_P(HttpClientRedirection, isTheAnswerWhereItLeadsToAnotherServer)
{
    const HttpsServer other([](const ReceivedRequest &) { return ServerAnswer{ .body = "elsewhere" }; });
    const RedirectingServer server(other.origin() + "/", GetParam());

    EXPECT_EQ(fetched(client, server.origin() + "/start", key), answer(GetParam(), "moved"));

    EXPECT_EQ(targetsOf(server), QList<QByteArray>{ "/start" });
    EXPECT_EQ(other.connections(), 0);
}

INSTANTIATE_TEST_SUITE_P(, HttpClientRedirection, testing::Values(301, 302, 303, 307, 308),
    [](const auto &test) { return "by" + std::to_string(test.param); });

using HttpClientRedirections = HttpClientRedirection;

TEST_F(HttpClientRedirections, areTheAnswerWhereTheyCannotBeFollowed)
{
    const HttpsServer somewhere([](const ReceivedRequest &) { return ServerAnswer{}; });
    QByteArray plain = somewhere.origin();
    plain.replace("https", "http");
    QByteArray otherName = somewhere.origin();
    otherName.replace("127.0.0.1", "localhost");
    QByteArray file = somewhere.origin();
    file.replace("https", "ftp");

    for (const QByteArray &location : QList<QByteArray>{ "", somewhere.origin(), otherName, plain, file,
             "::::", "https://", "/a b", "/\xC3\xA9", "/%zz", "javascript:alert(1)" }) {
        const RedirectingServer server(location);

        EXPECT_EQ(fetched(client, server.origin() + "/start"), answer(302, "moved"));
        EXPECT_EQ(targetsOf(server), QList<QByteArray>{ "/start" });
    }

    EXPECT_EQ(somewhere.connections(), 0);
}

TEST_F(HttpClientRedirections, areTheAnswerWhereTheyLeadToAUserOfTheSameServer)
{
    QByteArray user;
    const HttpsServer server([&user](const ReceivedRequest &) {
        return ServerAnswer{ .status = 302, .body = "moved", .headers = { { "Location", user } } };
    });
    user = server.origin();
    user.replace("https://", "https://user:password@");

    EXPECT_EQ(fetched(client, server.origin() + "/start"), answer(302, "moved"));

    EXPECT_EQ(server.requests().size(), 1);
}

TEST_F(HttpClientRedirections, endAfterTheTenthWithItsAnswer)
{
    int count = 0;
    const HttpsServer server([&count](const ReceivedRequest &) {
        return ServerAnswer{
            .status = 307, .body = QByteArray::number(++count), .headers = { { "Location", "/" } }
        };
    });

    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(307, "11"));

    EXPECT_EQ(server.requests().size(), 11);
}

TEST_F(HttpClientRedirections, leaveNothingOfTheirBodiesInTheAnswer)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        const int step = request.target.mid(1).toInt();
        if (step == 10)
            return ServerAnswer{ .body = "the end" };
        return ServerAnswer{ .status = 302,
            .body = QByteArray(200'000, 'a'),
            .headers = { { "Location", QByteArray::number(step + 1) } } };
    });

    EXPECT_EQ(fetched(client, server.origin() + "/0"), answer(200, "the end"));

    EXPECT_EQ(server.requests().size(), 11);
    EXPECT_EQ(server.connections(), 1);
}

} // namespace
} // namespace glimmet
