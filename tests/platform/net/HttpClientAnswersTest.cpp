#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

struct Answered {
    int status;
    HttpHeaders headers;
    const char *name;
};

class HttpClientStatus : public testing::TestWithParam<Answered> {};

TEST_P(HttpClientStatus, isAnAnswerWithItsBody)
{
    const auto &[status, headers, name] = GetParam();
    const QByteArray body = status == 204 || status == 304 ? "" : "the body";
    const HttpsServer server([&](const ReceivedRequest &) {
        return ServerAnswer{ .status = status, .body = body, .headers = headers };
    });
    HttpClient client(trustingSettings());

    const HttpResult result = fetched(client, server.origin() + "/");

    EXPECT_EQ(result, answer(status, body));
    EXPECT_EQ(server.requests().size(), 1);
}

INSTANTIATE_TEST_SUITE_P(, HttpClientStatus,
    testing::Values(Answered{ 200, {}, "ok" }, Answered{ 204, {}, "noContent" },
        Answered{ 301, {}, "movedNowhere" }, Answered{ 304, {}, "notModified" },
        Answered{ 400, {}, "badRequest" }, Answered{ 401, {}, "unauthorized" },
        Answered{ 401, { { "WWW-Authenticate", "Basic realm=\"a\"" } }, "unauthorizedBasic" },
        Answered{ 401, { { "WWW-Authenticate", "Digest realm=\"a\", nonce=\"b\"" } }, "unauthorizedDigest" },
        Answered{ 401, { { "WWW-Authenticate", "Bearer error=\"invalid_token\"" } }, "unauthorizedBearer" },
        Answered{ 401, { { "WWW-Authenticate", "Negotiate" }, { "WWW-Authenticate", "NTLM" } },
            "unauthorizedNegotiate" },
        Answered{ 403, {}, "forbidden" }, Answered{ 404, {}, "notFound" }, Answered{ 405, {}, "notAllowed" },
        Answered{ 407, { { "Proxy-Authenticate", "Basic realm=\"a\"" } }, "proxyUnauthorized" },
        Answered{ 407, {}, "proxyUnauthorizedBare" }, Answered{ 409, {}, "conflict" },
        Answered{ 410, {}, "gone" }, Answered{ 418, {}, "teapot" }, Answered{ 422, {}, "unprocessable" },
        Answered{ 429, { { "Retry-After", "7" } }, "tooMany" }, Answered{ 500, {}, "serverError" },
        Answered{ 501, {}, "notImplemented" }, Answered{ 503, {}, "unavailable" },
        Answered{ 599, {}, "unknown" }, Answered{ 999, {}, "beyond" }),
    [](const auto &test) { return std::string(test.param.name) + std::to_string(test.param.status); });

} // namespace
} // namespace glimmet
