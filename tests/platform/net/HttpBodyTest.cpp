#include "platform/net/HttpBody.h"

#include "tests/support/Gzip.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// A text that is long, and neither packs to next to nothing nor to more than a fraction of itself.
QByteArray longText()
{
    QByteArray text;
    for (int i = 0; i < 30'000; ++i)
        text += "item " + QByteArray::number(i * 7919 % 10007) + ", ";
    return text;
}

/// The body that comes of `bytes` in pieces of that size, where it is good and whole.
std::optional<QByteArray> read(
    const QByteArray &encoding, const QByteArray &bytes, qsizetype pieceSize, qint64 longest = 1 << 20)
{
    HttpBody body(encoding, longest);
    for (qsizetype at = 0; at < bytes.size(); at += pieceSize)
        if (!body.append(bytes.mid(at, pieceSize)))
            return std::nullopt;
    return body.isWhole() ? std::optional(body.bytes()) : std::nullopt;
}

constexpr qsizetype inOne = 1 << 30;

TEST(HttpBody, isWhatCameWhereNothingIsPacked)
{
    EXPECT_EQ(read("", "some text", 1), "some text");
    EXPECT_EQ(read("identity", "some text", inOne), "some text");
    EXPECT_EQ(read("", "", 1), "");
}

TEST(HttpBody, isUnpackedInPiecesOfAnySize)
{
    const QByteArray text = longText();
    const QByteArray packed = gzipped(text);

    for (const qsizetype pieceSize : { 1LL, 2LL, 1000LL, 16'384LL, 65'536LL, 1LL << 30 })
        EXPECT_TRUE(read("gzip", packed, pieceSize) == text) << pieceSize;
}

TEST(HttpBody, isUnpackedToTheLastByteWhateverItsSize)
{
    // Around the size of the room that is unpacked into, and twice that.
    for (const int size : { 0, 1, 16'383, 16'384, 16'385, 32'767, 32'768, 32'769 }) {
        const QByteArray text(size, 'a');

        EXPECT_TRUE(read("gzip", gzipped(text), inOne) == text) << size;
        EXPECT_TRUE(read("gzip", gzipped(text), 1) == text) << size;
    }
}

TEST(HttpBody, isUnpackedUnderEveryNameOfThePacking)
{
    for (const char *encoding : { "gzip", "x-gzip", "GZIP", "X-GZip" })
        EXPECT_EQ(read(encoding, gzipped("text"), inOne), "text") << encoding;
}

TEST(HttpBody, mayBePackedInSeveralParts)
{
    const QByteArray packed = gzipped("one, ") + gzipped("two, ") + gzipped("") + gzipped("three");

    EXPECT_EQ(read("gzip", packed, inOne), "one, two, three");
    EXPECT_EQ(read("gzip", packed, 1), "one, two, three");
}

TEST(HttpBody, mayBeEmptyUnderTheNameOfAPacking)
{
    EXPECT_EQ(read("gzip", "", 1), "");
}

TEST(HttpBody, isNoneWithAByteMissing)
{
    const QByteArray packed = gzipped("some text");

    for (qsizetype size = 1; size < packed.size(); ++size)
        EXPECT_EQ(read("gzip", packed.left(size), inOne), std::nullopt) << size;
}

TEST(HttpBody, isNoneWithAWrongBit)
{
    const QByteArray packed = gzipped(longText());
    // Its first bytes name the packing, its last ones are the checksum and the length.
    for (const qsizetype at :
        { qsizetype(0), qsizetype(2), packed.size() / 2, packed.size() - 8, packed.size() - 1 }) {
        QByteArray wrong = packed;
        wrong[at] = static_cast<char>(wrong[at] ^ 4);

        EXPECT_EQ(read("gzip", wrong, inOne), std::nullopt) << at;
        EXPECT_EQ(read("gzip", wrong, 100), std::nullopt) << at;
    }
}

TEST(HttpBody, isNoneWhereItIsNotPackedAtAll)
{
    for (const QByteArray &text : { "{\"chart\":{}}"_ba, "Too Many Requests\r\n"_ba, QByteArray(5000, 'b') })
        EXPECT_EQ(read("gzip", text, inOne), std::nullopt);
    EXPECT_EQ(read("gzip", gzipped("text") + "and more", inOne), std::nullopt);
    const QByteArray otherPacking = qCompress("text").mid(4); // behind the length: a zlib stream
    EXPECT_EQ(read("gzip", otherPacking, inOne), std::nullopt);
}

TEST(HttpBody, isAsLongAsItMayBeAndNoLonger)
{
    const QByteArray text = longText();

    EXPECT_TRUE(read("", text, 1000, text.size()) == text);
    EXPECT_EQ(read("", text, 1000, text.size() - 1), std::nullopt);
    EXPECT_TRUE(read("gzip", gzipped(text), inOne, text.size()) == text);
    EXPECT_EQ(read("gzip", gzipped(text), inOne, text.size() - 1), std::nullopt);
    EXPECT_EQ(read("gzip", gzipped("ab") + gzipped("cd"), inOne, 3), std::nullopt);
}

} // namespace
} // namespace glimmet
