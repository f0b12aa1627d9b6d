#include "tests/support/HttpFetching.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using Ending = ServerAnswer::Ending;

/// What a server sends, byte for byte, and how the connection ends behind that.
struct Sent {
    const char *name;
    QByteArray bytes;
    Ending ending = Ending::Complete;
    HttpHeaders headers = {};
};

void PrintTo(const Sent &sent, std::ostream *stream)
{
    *stream << sent.name;
}

const HttpHeaders closing{ { "Connection", "close" } };

HttpResult received(const Sent &sent)
{
    const HttpsServer server([&sent](const ReceivedRequest &) {
        return ServerAnswer{ .headers = sent.headers, .ending = sent.ending, .raw = sent.bytes };
    });
    HttpClient client(trustingSettings());
    return fetched(client, server.origin() + "/");
}

QByteArray withHeaders(const QByteArray &headers, const QByteArray &body)
{
    return "HTTP/1.1 200 OK\r\n" + headers + "\r\n\r\n" + body;
}

QByteArray inChunks(const QByteArray &chunks)
{
    return withHeaders("Transfer-Encoding: chunked", chunks);
}

QByteArray ofLength(const QByteArray &length)
{
    return withHeaders("Content-Length: " + length, "hello");
}

class HttpClientWholeAnswer : public testing::TestWithParam<Sent> {};

TEST_P(HttpClientWholeAnswer, isOne)
{
    EXPECT_EQ(received(GetParam()), answer(200, "hello"));
}

const QByteArray manyLines = QByteArray("X: " + QByteArray(997, 'a') + "\r\n").repeated(60);

INSTANTIATE_TEST_SUITE_P(, HttpClientWholeAnswer,
    testing::Values(Sent{ "ofALength", ofLength("5") }, Sent{ "ofTwoEqualLengths", ofLength("5, 5") },
        Sent{ "inChunks", inChunks("2\r\nhe\r\n3\r\nllo\r\n0\r\n\r\n") },
        Sent{ "inChunksWithExtensions", inChunks("5;a=b\r\nhello\r\n0\r\n\r\n") },
        Sent{ "inChunksWithLinesBehind", inChunks("5\r\nhello\r\n0\r\nX: y\r\n\r\n") },
        Sent{ "inChunksWithALength",
            withHeaders("Transfer-Encoding: chunked\r\nContent-Length: 3", "5\r\nhello\r\n0\r\n\r\n") },
        Sent{ "behindOneInterimAnswer", "HTTP/1.1 103 Early Hints\r\nX: y\r\n\r\n" + ofLength("5") },
        Sent{
            "behindTwoInterimAnswers", "HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 103 \r\n\r\n" + ofLength("5") },
        Sent{ "withoutALengthWhereTheServerTakesLeave", withHeaders("X: y", "hello"), Ending::Complete,
            closing },
        Sent{ "withJustFewEnoughHeaders",
            "HTTP/1.1 200 OK\r\n" + manyLines + "Content-Length: 5\r\n\r\nhello" }),
    [](const auto &test) { return std::string(test.param.name); });

class HttpClientLostAnswer : public testing::TestWithParam<Sent> {};

TEST_P(HttpClientLostAnswer, isOne)
{
    EXPECT_EQ(received(GetParam()), HttpResult(TransportFailure::ConnectionLost));
}

INSTANTIATE_TEST_SUITE_P(, HttpClientLostAnswer,
    testing::Values(
        Sent{ "withoutALengthWhereTheConnectionBreaks", withHeaders("X: y", "hello"), Ending::CutInBody },
        Sent{ "ofALengthThatIsNoNumber", ofLength("five"), Ending::CutInBody },
        Sent{ "ofALengthWithMoreBehindIt", ofLength("5x"), Ending::CutInBody },
        Sent{ "ofANegativeLength", ofLength("-5"), Ending::CutInBody },
        Sent{ "ofALengthBeyond64Bits", ofLength("99999999999999999999999"), Ending::CutInBody },
        Sent{ "ofALengthBeyond64BitsThatTakesLeave", ofLength("99999999999999999999999"), Ending::Complete,
            closing },
        Sent{ "ofTwoLengths", withHeaders("Content-Length: 5\r\nContent-Length: 6", "hello!") },
        Sent{ "thatIsTooShort", ofLength("6"), Ending::Complete, closing },
        Sent{ "withAChunkThatIsNoNumber", inChunks("2\r\nhe\r\nno\r\nllo\r\n0\r\n\r\n") },
        Sent{ "withAChunkBeyond64Bits", inChunks("2\r\nhe\r\nfffffffffffffffffffff\r\nllo\r\n0\r\n\r\n") },
        Sent{ "withAChunkThatIsLongerThanItSays", inChunks("2\r\nhello\r\n0\r\n\r\n") },
        Sent{ "inNoChunksBehindALength",
            withHeaders("Transfer-Encoding: identity\r\nContent-Length: 1000", "hello"), Ending::CutInBody },
        Sent{ "inACodingThatEndsWithTheConnection", withHeaders("Transfer-Encoding: identity", "hello"),
            Ending::CutInBody },
        Sent{ "inACodingWithoutAName", withHeaders("Transfer-Encoding:\r\nContent-Length: 1000", "hello"),
            Ending::CutInBody },
        Sent{ "inChunksAsAFoldedLineSays", withHeaders("X: y\r\n Transfer-Encoding: chunked", "hello"),
            Ending::CutInBody },
        Sent{ "cutInAChunk", inChunks("5\r\nhel"), Ending::CutInBody },
        Sent{ "cutBetweenChunks", inChunks("5\r\nhello\r\n"), Ending::CutInBody },
        Sent{ "thatTakesLeaveBetweenChunks", inChunks("5\r\nhello\r\n"), Ending::Complete, closing },
        Sent{ "cutBehindTheLastChunk", inChunks("5\r\nhello\r\n0\r\n"), Ending::CutInBody },
        Sent{ "cutInTheStatusLine", "HTTP/1.1 20", Ending::CutInBody },
        Sent{ "cutInAHeader", "HTTP/1.1 200 OK\r\nContent-Le", Ending::CutInBody },
        Sent{ "withTooManyHeaders", "HTTP/1.1 200 OK\r\n" + manyLines.repeated(2) },
        Sent{ "withAHeaderThatIsTooLong", "HTTP/1.1 200 OK\r\nX: " + QByteArray(200'000, 'a') },
        Sent{ "withAStatusLineThatIsTooLong", "HTTP/1.1 200 " + QByteArray(200'000, 'a') },
        Sent{ "withTooManyLinesBehind", inChunks("5\r\nhello\r\n0\r\n" + manyLines.repeated(2)) },
        Sent{ "behindTooManyInterimAnswers",
            QByteArray("HTTP/1.1 103 \r\n\r\n").repeated(5000) + ofLength("5") },
        Sent{ "thatIsInterim", "HTTP/1.1 101 Switching Protocols\r\nUpgrade: h2c\r\n\r\n", Ending::Complete,
            closing },
        Sent{ "withoutAnyHeaders", "hello", Ending::Complete, closing },
        Sent{ "inAnotherProtocol", QByteArray::fromHex("000000040000000000"), Ending::Complete, closing }),
    [](const auto &test) { return std::string(test.param.name); });

} // namespace
} // namespace glimmet
