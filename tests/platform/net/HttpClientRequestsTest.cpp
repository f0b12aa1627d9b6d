#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using testing::Contains;
using testing::ElementsAreArray;

ServerAnswer nothingMuch(const ReceivedRequest &)
{
    return {};
}

/// The values of a header, with its name in any case.
QList<QByteArray> valuesOf(const ReceivedRequest &request, const QByteArray &name)
{
    QList<QByteArray> values;
    for (const auto &[headerName, value] : request.headers)
        if (headerName.compare(name, Qt::CaseInsensitive) == 0)
            values.append(value);
    return values;
}

QList<QByteArray> targetsOf(const HttpsServer &server)
{
    QList<QByteArray> targets;
    for (const ReceivedRequest &request : server.requests())
        targets.append(request.target);
    return targets;
}

class HttpClientRequest : public testing::Test {
protected:
    ReceivedRequest received(const HttpHeaders &headers)
    {
        EXPECT_EQ(fetched(client, server.origin() + "/", headers), answer(200, ""));
        return server.requests().value(0);
    }

    HttpsServer server{ nothingMuch };
    HttpClient client{ trustingSettings() };
};

TEST_F(HttpClientRequest, asksForTheAddressByteForByte)
{
    const QList<QByteArray> targets{ "/", "/v8/finance/chart/%5EGSPC?interval=1h&range=1d",
        "/v8/finance/chart/EURUSD%3DX", "/a//b;c=d,e/~f!$'()*+:@", "/a?b=%20+%2B%26&c[]=%5B%5D&&d=?/e", "/?",
        "/%2F%3F%23%25%40", "/%F0%9F%98%80", "/a?cursor=abc%3D%3D", "/a?starting_after=ch_1&limit=100" };

    for (const QByteArray &target : targets)
        EXPECT_EQ(fetched(client, server.origin() + target), answer(200, ""));

    EXPECT_THAT(targetsOf(server), ElementsAreArray(targets));
    EXPECT_EQ(server.requests().first().method, "GET");
}

TEST_F(HttpClientRequest, asksForTheRootWhereTheAddressHasNoPathAndKeepsTheFragmentToItself)
{
    for (const QByteArray &tail : { ""_ba, "?a=b"_ba, "/a#b"_ba, "/a?b#c?d"_ba })
        EXPECT_EQ(fetched(client, server.origin() + tail), answer(200, ""));

    EXPECT_THAT(targetsOf(server), ElementsAreArray({ "/"_ba, "/?a=b"_ba, "/a"_ba, "/a?b"_ba }));
}

TEST_F(HttpClientRequest, bearsItsHeadersAsTheyAre)
{
    const HttpHeaders headers{ { "Authorization", "Bearer sk_live_a+b/c=  d\te\xC3\xA9,;\"" },
        { "Accept", "application/vnd.api+json" }, { "X-Empty", "" } };

    const ReceivedRequest request = received(headers);

    for (const auto &[name, value] : headers)
        EXPECT_EQ(valuesOf(request, name), QList<QByteArray>{ value });
}

TEST_F(HttpClientRequest, namesItselfOnceAsItIsTold)
{
    const ReceivedRequest request = received({ { "User-Agent", "Mozilla/5.0" } });

    EXPECT_EQ(valuesOf(request, "User-Agent"), QList<QByteArray>{ "Mozilla/5.0" });
}

TEST_F(HttpClientRequest, bearsNothingThatNobodyAskedFor)
{
    const ReceivedRequest request = received({});

    QList<QByteArray> names;
    for (const auto &[name, value] : request.headers)
        names.append(name.toLower());
    std::sort(names.begin(), names.end());
    EXPECT_THAT(names, ElementsAreArray({ "accept"_ba, "accept-encoding"_ba, "host"_ba, "user-agent"_ba }));
    // Services turn those away that do not say who they are.
    EXPECT_EQ(request.header("User-Agent"), "glimmet");
}

TEST_F(HttpClientRequest, bearsAValueWithItsBlanksAndOneWithoutAnything)
{
    const ReceivedRequest request = received({ { "Authorization", "Bearer   key" }, { "X-Empty", "" } });

    EXPECT_EQ(request.header("Authorization"), "Bearer   key");
    EXPECT_EQ(valuesOf(request, "X-Empty"), QList<QByteArray>{ "" });
}

TEST_F(HttpClientRequest, asksForGzipOnly)
{
    EXPECT_EQ(valuesOf(received({}), "Accept-Encoding"), QList<QByteArray>{ "gzip" });
}

TEST(HttpClientCookies, areNotSentBack)
{
    const HttpsServer server([](const ReceivedRequest &) {
        return ServerAnswer{ .headers = { { "Set-Cookie", "a=b; Path=/" },
                                 { "Set-Cookie", "c=d; Path=/; Secure; Max-Age=1000" } } };
    });
    HttpClient client(trustingSettings());

    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, ""));

    for (const ReceivedRequest &request : server.requests())
        EXPECT_EQ(valuesOf(request, "Cookie"), QList<QByteArray>());
}

TEST(HttpClientCache, keepsNoAnswer)
{
    int count = 0;
    const HttpsServer server([&count](const ReceivedRequest &) {
        return ServerAnswer{ .body = QByteArray::number(++count),
            .headers = { { "Cache-Control", "max-age=1000" }, { "ETag", "\"a\"" } } };
    });
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "1"));
    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, "2"));

    EXPECT_EQ(server.requests().last().header("If-None-Match"), "");
}

TEST(HttpClientCredentials, areNotKeptForTheNextRequest)
{
    const HttpsServer server([](const ReceivedRequest &request) {
        const bool isKnown = request.header("Authorization") == "Bearer key";
        return ServerAnswer{ .status = isKnown ? 200 : 401,
            .headers = { { "WWW-Authenticate", "Basic realm=\"a\"" } } };
    });
    HttpClient client(trustingSettings());
    const QByteArray address = server.origin() + "/";

    EXPECT_EQ(fetched(client, address, { { "Authorization", "Bearer key" } }), answer(200, ""));
    EXPECT_EQ(fetched(client, address), answer(401, ""));
    EXPECT_EQ(fetched(client, address, { { "Authorization", "Bearer other" } }), answer(401, ""));
    EXPECT_EQ(fetched(client, address, { { "Authorization", "Bearer key" } }), answer(200, ""));
    EXPECT_EQ(server.requests().size(), 4);
}

} // namespace
} // namespace glimmet
