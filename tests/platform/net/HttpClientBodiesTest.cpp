#include "tests/support/Gzip.h"
#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <sys/resource.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

using Ending = ServerAnswer::Ending;

constexpr qsizetype mebi = 1 << 20;
const HttpHeaders packing{ { "Content-Encoding", "gzip" } };
const HttpHeaders chunking{ { "Transfer-Encoding", "chunked" } };
const HttpResult lost = TransportFailure::ConnectionLost;

/// What comes of that answer, where the body may be so long.
HttpResult received(const ServerAnswer &sent, qint64 largestBody = longestFigure)
{
    const HttpsServer server([&sent](const ReceivedRequest &) { return sent; });
    HttpClient client(trustingSettings());
    return fetched(client, { .address = server.origin() + "/", .largestBody = largestBody });
}

QByteArray chunked(const QByteArray &body)
{
    QByteArray chunks;
    for (const char character : body)
        chunks += "1\r\n" + QByteArray(1, character) + "\r\n";
    return chunks + "0\r\n\r\n";
}

/// The most memory that the process ever had, in bytes.
qint64 memoryPeak()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return qint64(usage.ru_maxrss) * 1024;
}

TEST(HttpClientBody, arrivesByteForByte)
{
    QByteArray bytes;
    for (unsigned i = 0; i < 300'000; ++i)
        bytes.append(static_cast<char>(i * i >> 7));

    EXPECT_EQ(received({ .body = bytes }), answer(200, bytes));
    EXPECT_EQ(received({ .body = bytes, .pieces = 50, .pause = 1ms }), answer(200, bytes));
}

TEST(HttpClientBody, isUnpacked)
{
    const QByteArray text = QByteArray("some text ").repeated(100'000);

    EXPECT_EQ(received({ .body = gzipped(text), .headers = packing }), answer(200, text));
    EXPECT_EQ(received({ .body = gzipped(text), .headers = packing, .pieces = 50, .pause = 1ms }),
        answer(200, text));
    EXPECT_EQ(
        received({ .status = 500, .body = gzipped("sorry"), .headers = packing }), answer(500, "sorry"));
}

TEST(HttpClientBody, isPutTogetherFromChunks)
{
    EXPECT_EQ(received({ .body = chunked("some text"), .headers = chunking, .pieces = 7, .pause = 1ms }),
        answer(200, "some text"));
    EXPECT_EQ(received({ .body = chunked(gzipped("some text")), .headers = packing + chunking }),
        answer(200, "some text"));
}

TEST(HttpClientBody, isNoneWhereItCannotBeUnpacked)
{
    QByteArray wrong = gzipped(QByteArray(100'000, 'a'));
    wrong[wrong.size() / 2] = '!';

    for (const int status : { 200, 401, 404, 418, 429, 500, 503 })
        EXPECT_EQ(received({ .status = status, .body = wrong, .headers = packing }), lost) << status;
    EXPECT_EQ(received({ .body = wrong, .headers = packing, .pieces = 20, .pause = 1ms }), lost);
    EXPECT_EQ(received({ .body = "not packed", .headers = packing }), lost);
}

TEST(HttpClientBody, isNoneWhereThePackingHasNoEnd)
{
    const QByteArray packed = gzipped("some text");

    EXPECT_EQ(received({ .body = packed.chopped(1), .headers = packing }), lost);
    EXPECT_EQ(received({ .status = 500, .body = packed.chopped(9), .headers = packing }), lost);
}

TEST(HttpClientBody, endsTheConnectionWhereItUnpacksToNothingWithoutEnd)
{
    const auto emptyBlock = [](char isLast) {
        return QByteArray(1, isLast) + QByteArray::fromHex("0000ffff");
    };
    const QByteArray packed = QByteArray::fromHex("1f8b0800000000000003") + emptyBlock(0).repeated(400'000)
        + emptyBlock(1) + QByteArray(8, 0); // The check sum and the size of nothing.
    HttpsServer server([&](const ReceivedRequest &) {
        return ServerAnswer{ .body = packed, .headers = { { "Content-Encoding", "gzip" } } };
    });
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/"), answer(200, {}));
    EXPECT_EQ(
        fetched(client, { .address = server.origin() + "/", .largestBody = packed.size() / 2 - 1 }), lost);
}

TEST(HttpClientBody, mayHaveTheSizeOfTheLimitAndNotAByteMore)
{
    const QByteArray body(100'000, 'a');

    for (const int status : { 200, 500 }) {
        EXPECT_EQ(received({ .status = status, .body = body }, body.size()), answer(status, body));
        EXPECT_EQ(received({ .status = status, .body = body }, body.size() - 1), lost);
        EXPECT_EQ(received({ .status = status, .body = gzipped(body), .headers = packing }, body.size()),
            answer(status, body));
        EXPECT_EQ(
            received({ .status = status, .body = gzipped(body), .headers = packing }, body.size() - 1), lost);
    }
}

TEST(HttpClientBody, endsTheConnectionAsSoonAsItIsTooLong)
{
    // Never to its end: that would take minutes.
    const ServerAnswer endless{ .body = QByteArray(mebi, 'a'), .pieces = 100'000, .pause = 10ms };

    EXPECT_EQ(received(endless, 100), lost);
}

TEST(HttpClientBody, mayBeFourMebibytesUnlessSetOtherwise)
{
    const QByteArray largest = gzipped(QByteArray(mebi, 'a')).repeated(4);

    EXPECT_EQ(HttpRequest().largestBody, 4 * mebi);
    EXPECT_EQ(received({ .body = largest, .headers = packing }), answer(200, QByteArray(4 * mebi, 'a')));
    EXPECT_EQ(received({ .body = largest + gzipped("a"), .headers = packing }), lost);
}

TEST(HttpClientBody, mayBeSixteenMebibytesWhereItIsAPage)
{
    const QByteArray largest = gzipped(QByteArray(mebi, 'a')).repeated(16);

    EXPECT_EQ(longestPage, 16 * mebi);
    EXPECT_EQ(received({ .body = largest, .headers = packing }, longestPage),
        answer(200, QByteArray(16 * mebi, 'a')));
    EXPECT_EQ(received({ .body = largest + gzipped("a"), .headers = packing }, longestPage), lost);
}

TEST(HttpClientBody, doesNotFillTheMemoryWhenItUnpacksToAGreatDeal)
{
    const QByteArray bomb = gzipped(QByteArray(mebi, '\0')).repeated(500);
    const qint64 before = memoryPeak();

    EXPECT_EQ(received({ .body = bomb, .headers = packing }, mebi), lost);

    EXPECT_LT(memoryPeak() - before, 100 * mebi);
}

struct Cut {
    int status;
    QByteArray body;
    HttpHeaders headers;
    const char *name;
};

class HttpClientCutBody : public testing::TestWithParam<Cut> {};

TEST_P(HttpClientCutBody, isALostConnection)
{
    const auto &[status, body, headers, name] = GetParam();
    const ServerAnswer cut{ .status = status, .body = body, .headers = headers, .ending = Ending::CutInBody };
    const HttpsServer server([&cut](const ReceivedRequest &) { return cut; });
    HttpClient client(trustingSettings());

    EXPECT_EQ(fetched(client, server.origin() + "/"), lost);

    EXPECT_EQ(server.requests().size(), 1);
}

const QByteArray someBody(10'000, 'a');

INSTANTIATE_TEST_SUITE_P(, HttpClientCutBody,
    testing::Values(Cut{ 200, someBody, {}, "plain" }, Cut{ 200, "ab", {}, "plainOfTwoBytes" },
        Cut{ 200, "a", {}, "plainBeforeItsFirstByte" }, Cut{ 200, gzipped(someBody), packing, "packed" },
        Cut{ 200, someBody, packing, "falselyPacked" }, Cut{ 200, chunked("some text"), chunking, "chunked" },
        Cut{ 200, chunked(gzipped(someBody)), packing + chunking, "chunkedAndPacked" },
        Cut{ 200, someBody, { { "Connection", "close" } }, "plainOfAClosedConnection" },
        Cut{ 302, someBody, { { "Location", "/" } }, "redirecting" },
        Cut{ 401, someBody, {}, "unauthorized" }, Cut{ 404, someBody, {}, "notFound" },
        Cut{ 418, someBody, {}, "teapot" }, Cut{ 500, someBody, {}, "serverError" },
        Cut{ 500, gzipped(someBody), packing, "serverErrorPacked" },
        Cut{ 503, chunked("some text"), chunking, "unavailableChunked" }),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace glimmet
