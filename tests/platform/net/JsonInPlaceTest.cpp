#include "platform/net/Json.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <malloc.h>
#include <thread>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The text with room for as many bytes behind it, and none more.
QByteArray withRoom(const QByteArray &text, qsizetype bytes)
{
    QByteArray roomy;
    roomy.reserve(text.size() + bytes);
    roomy.append(text);
    EXPECT_EQ(roomy.capacity(), text.size() + bytes);
    return roomy;
}

/// The text with whatever lies behind it in its array.
QByteArray withBehindIt(const QByteArray &text, const QByteArray &behind)
{
    QByteArray roomy = withRoom(text + behind, JsonDocument::padding);
    roomy.resize(text.size());
    return roomy;
}

std::optional<qint64> integer(const QByteArray &text)
{
    const auto document = JsonDocument::readInPlace(text);
    return document ? document->root().integer() : std::nullopt;
}

TEST(JsonInPlace, isReadWhateverRoomThereIsBehindIt)
{
    for (qsizetype room = 0; room <= 2 * JsonDocument::padding; ++room)
        for (const QByteArray &text : { "7"_ba, "[7]"_ba, QByteArray(63, ' ') + '7',
                 QByteArray(64, ' ') + '7', "\xEF\xBB\xBF 7"_ba, "\"" + QByteArray(200, 'x') + '"' })
            EXPECT_TRUE(JsonDocument::readInPlace(withRoom(text, room))) << room << text.toStdString();
}

TEST(JsonInPlace, endsWithItsTextWhateverLiesBehindIt)
{
    EXPECT_EQ(integer(withBehindIt("12", "34")), 12);
    EXPECT_EQ(integer(withBehindIt("12", "}\xFF\"")), 12);
    EXPECT_EQ(integer(withBehindIt("\xEF\xBB\xBF"
                                   "12",
                  "34")),
        12);
    EXPECT_FALSE(JsonDocument::readInPlace(withBehindIt("[1", "]")));
    EXPECT_FALSE(JsonDocument::readInPlace(withBehindIt("\"a", "\"")));
    EXPECT_FALSE(JsonDocument::readInPlace(withBehindIt("", "7")));
}

TEST(JsonInPlace, isReadFromMemoryThatIsNotTheArraysOwn)
{
    const std::unique_ptr<char[]> digits(new char[2]{ '1', '2' });

    EXPECT_EQ(integer(QByteArray::fromRawData(digits.get(), 2)), 12);
    EXPECT_EQ(integer(QByteArray::fromRawData(digits.get(), 1)), 1);
}

TEST(JsonInPlace, keepsToTheLimitsOfEveryDocument)
{
    const auto isReadable = [](const QByteArray &text) {
        return JsonDocument::readInPlace(withRoom(text, JsonDocument::padding)).has_value();
    };
    EXPECT_TRUE(isReadable(QByteArray(512, '[') + QByteArray(512, ']')));
    EXPECT_FALSE(isReadable(QByteArray(513, '[') + QByteArray(513, ']')));
    EXPECT_FALSE(isReadable("\xEF\xBB\xBF\xEF\xBB\xBF 7"));
    EXPECT_FALSE(isReadable("\xEF\xBB\xBF"));
    EXPECT_FALSE(isReadable("[\"\xFF\"]"));
    EXPECT_FALSE(isReadable("[1e400]"));
}

TEST(JsonInPlace, staysReadableWithoutItsText)
{
    QByteArray text = withRoom(R"(["kept",1])", JsonDocument::padding);
    const auto document = JsonDocument::readInPlace(text);
    text.fill('x');
    text.clear();

    ASSERT_TRUE(document);
    EXPECT_EQ(document->root().list()->first().text(), u"kept"_s);
}

TEST(JsonInPlace, leavesTheTextAsItIs)
{
    const QByteArray text = withBehindIt(R"({"a":"\n","b":[1,2]})", "behind");
    const QByteArray before(text.constData(), text.size());

    EXPECT_TRUE(JsonDocument::readInPlace(text));

    EXPECT_EQ(text, before);
    // resize() has ended the text with a NUL over the first letter.
    EXPECT_EQ(QByteArray(text.constData() + text.size() + 1, 5), "ehind");
}

#if !defined(__SANITIZE_ADDRESS__) // Its own memory is not counted.

constexpr qsizetype longLength = 10'000'000;

/// What a document that was just read keeps of memory, on a thread of its own, which begins with nothing.
qsizetype bytesKeptOf(const QByteArray &text)
{
    qsizetype kept = 0;
    std::thread([&] {
        const auto used = [] {
            const auto memory = mallinfo2();
            return static_cast<qsizetype>(memory.uordblks + memory.hblkhd);
        };
        const qsizetype before = used();
        const auto document = JsonDocument::readInPlace(text);
        ASSERT_TRUE(document);
        kept = used() - before;
    }).join();
    return kept;
}

QByteArray longText()
{
    return '"' + QByteArray(longLength - 2, 'x') + '"';
}

TEST(JsonInPlace, hasNoCopyOfItsText)
{
    const qsizetype inPlace = bytesKeptOf(withRoom(longText(), JsonDocument::padding));
    const qsizetype copied = bytesKeptOf(withRoom(longText(), JsonDocument::padding - 1));

    EXPECT_NEAR(static_cast<double>(copied - inPlace), longLength, 100'000);
}

TEST(JsonInPlace, isCopiedWhereOnlyItsFrontHasRoom)
{
    QByteArray text = withRoom(QByteArray(JsonDocument::padding, ' ') + longText(), 0);
    text.data_ptr().setBegin(text.data_ptr().begin() + JsonDocument::padding);
    text.data_ptr().size -= JsonDocument::padding;
    ASSERT_EQ(text, longText());
    ASSERT_EQ(text.capacity(), text.size() + JsonDocument::padding);

    const qsizetype kept = bytesKeptOf(text);

    EXPECT_NEAR(static_cast<double>(kept - bytesKeptOf(withRoom(longText(), 0))), 0, 100'000);
}

#endif

} // namespace
} // namespace glimmet
