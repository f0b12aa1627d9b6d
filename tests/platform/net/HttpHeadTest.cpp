#include "platform/net/HttpHead.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The head of these lines; none where one of them is refused.
std::optional<HttpHead> head(const QList<QByteArray> &lines)
{
    HttpHead head;
    for (const QByteArray &line : lines)
        if (!head.append(line + "\r\n"))
            return std::nullopt;
    return head;
}

std::optional<qint64> lengthOf(const QByteArray &value)
{
    const auto read = head({ "HTTP/1.1 200 OK", "Content-Length: " + value, "" });
    return read ? read->bodyLength() : std::nullopt;
}

TEST(HttpHead, hasAStatusAndTheHeadersThatAreAskedFor)
{
    const auto read =
        head({ "HTTP/1.1 302 Found", "location: /there", "CONTENT-ENCODING:gzip ", "X: y", "" });

    ASSERT_TRUE(read);
    EXPECT_EQ(read->status(), 302);
    EXPECT_EQ(read->location(), "/there");
    EXPECT_EQ(read->contentEncoding(), "gzip");
    EXPECT_EQ(read->bodyLength(), std::nullopt);
}

TEST(HttpHead, hasAStatusWithoutAReason)
{
    EXPECT_EQ(head({ "HTTP/1.1 999 " })->status(), 999);
    EXPECT_EQ(head({ "HTTP/1.1 204" })->status(), 204);
}

TEST(HttpHead, isRefusedWithoutAStatusOfThreeDigits)
{
    for (const char *line : { "HTTP/1.1", "HTTP/1.1 ", "HTTP/1.1 twelve", "HTTP/1.1 20", "HTTP/1.1 2000 OK",
             "HTTP/1.1 +20 OK", "HTTP/1.1 200OK", "HTTP/1.1 22222222222222222222222" })
        EXPECT_FALSE(head({ line })) << line;
}

TEST(HttpHead, isThatOfTheAnswerBehindInterimOnes)
{
    const auto read = head({ "HTTP/1.1 103 Early Hints", "Location: /early", "Content-Length: 7", "",
        "HTTP/1.1 200 OK", "Content-Length: 5", "" });

    ASSERT_TRUE(read);
    EXPECT_EQ(read->status(), 200);
    EXPECT_EQ(read->location(), "");
    EXPECT_EQ(read->bodyLength(), 5);
}

TEST(HttpHead, isNotChangedByLinesBehindTheBody)
{
    const auto read = head({ "HTTP/1.1 200 OK", "Content-Length: 5", "", "Content-Length: 6", "Location: /",
        "HTTP/1.1 500 Sorry" });

    ASSERT_TRUE(read);
    EXPECT_EQ(read->status(), 200);
    EXPECT_EQ(read->location(), "");
    EXPECT_EQ(read->bodyLength(), 5);
}

TEST(HttpHead, saysALengthThatIsANumber)
{
    EXPECT_EQ(lengthOf("0"), 0);
    EXPECT_EQ(lengthOf("00012"), 12);
    EXPECT_EQ(lengthOf("9223372036854775807"), 9223372036854775807);
    EXPECT_EQ(lengthOf("5, 5"), 5);
}

TEST(HttpHead, isRefusedWithACodingThatIsNotAskedFor)
{
    for (const char *coding : { "", "identity", "gzip", "gzip, chunked", "chunked, identity" })
        EXPECT_FALSE(head({ "HTTP/1.1 200 OK", QByteArray("Transfer-Encoding: ") + coding })) << coding;
}

TEST(HttpHead, takesNoHeaderFromAFoldedLine)
{
    const auto read =
        head({ "HTTP/1.1 200 OK", "X: y", " Content-Length: 5", "\tTransfer-Encoding: chunked", "" });

    ASSERT_TRUE(read);
    EXPECT_TRUE(read->isBodyEndedByClosing());
}

TEST(HttpHead, isRefusedWithALengthThatIsNone)
{
    for (const QByteArray &length : { ""_ba, "-1"_ba, "+5"_ba, "5x"_ba, "0x5"_ba, "5.0"_ba, "5 5"_ba, "5,"_ba,
             "5, 6"_ba, "9223372036854775808"_ba, "99999999999999999999999"_ba })
        EXPECT_FALSE(head({ "HTTP/1.1 200 OK", "Content-Length: " + length })) << length.toStdString();
    EXPECT_FALSE(head({ "HTTP/1.1 200 OK", "Content-Length: 5", "Content-Length: 6" }));
}

TEST(HttpHead, saysNoLengthWhereTheBodyEndsInAnotherWay)
{
    for (const QByteArray &status : { "204"_ba, "304"_ba })
        EXPECT_EQ(head({ "HTTP/1.1 " + status, "Content-Length: 5" })->bodyLength(), std::nullopt);
    EXPECT_EQ(head({ "HTTP/1.1 200", "Transfer-Encoding: chunked", "Content-Length: 5" })->bodyLength(),
        std::nullopt);
}

TEST(HttpHead, isCompleteBehindItsEmptyLine)
{
    EXPECT_FALSE(head({ "HTTP/1.1 200 OK", "X: y" })->isComplete());
    EXPECT_FALSE(head({ "HTTP/1.1 103 ", "" })->isComplete());
    EXPECT_TRUE(head({ "HTTP/1.1 103 ", "", "HTTP/1.1 200 OK", "X: y", "" })->isComplete());
}

TEST(HttpHead, saysWhereOnlyTheConnectionsEndTellsThatOfTheBody)
{
    EXPECT_TRUE(head({ "HTTP/1.1 200 OK", "" })->isBodyEndedByClosing());
    EXPECT_TRUE(head({ "HTTP/1.1 500 ", "" })->isBodyEndedByClosing());
    EXPECT_FALSE(head({ "HTTP/1.1 204 ", "" })->isBodyEndedByClosing());
    EXPECT_FALSE(head({ "HTTP/1.1 304 ", "" })->isBodyEndedByClosing());
    EXPECT_FALSE(head({ "HTTP/1.1 200 OK", "Content-Length: 0", "" })->isBodyEndedByClosing());
    EXPECT_FALSE(head({ "HTTP/1.1 200 OK", "Transfer-Encoding: chunked", "" })->isBodyEndedByClosing());
}

TEST(HttpHead, isOfAtMost64KibibytesWithInterimAnswersAndLinesBehindTheBody)
{
    const QByteArray status = "HTTP/1.1 200 OK";
    const auto filling = [](qsizetype size) { return "X:" + QByteArray(size - 4, 'a'); };
    const qsizetype rest = HttpHead::longest - status.size() - 2 - 2;

    EXPECT_EQ(HttpHead::longest, 64 * 1024);
    EXPECT_TRUE(head({ status, filling(rest), "" }));
    EXPECT_FALSE(head({ status, filling(rest + 1), "" }));
    EXPECT_FALSE(head({ status, "", filling(rest + 1) }));
    EXPECT_FALSE(head({ "HTTP/1.1 100 ", filling(rest / 2), "", status, filling(rest / 2), "" }));
}

} // namespace
} // namespace glimmet
