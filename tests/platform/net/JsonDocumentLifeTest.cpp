#include "platform/net/Json.h"

#include "tests/support/Printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <malloc.h>
#include <memory>
#include <thread>
#include <vector>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using testing::Each;

JsonDocument read(const QByteArray &text)
{
    auto document = JsonDocument::read(text);
    EXPECT_TRUE(document);
    return *std::move(document);
}

/// A text of about `bytes` bytes with `number` at its end.
QByteArray longText(qsizetype bytes, qint64 number)
{
    return "{\"list\":[" + "0,"_ba.repeated(bytes / 2) + "0],\"number\":" + QByteArray::number(number) + '}';
}

/// A short one with `number` in it.
QByteArray shortText(qint64 number)
{
    return longText(0, number);
}

std::optional<qint64> numberIn(const JsonDocument &document)
{
    return document.root()["number"].integer();
}

std::size_t bytesInUse()
{
    const auto memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
}

TEST(JsonDocument, staysReadableWhileOthersAreRead)
{
    const JsonDocument first = read(R"(["first",1])");
    const JsonDocument second = read(R"(["second",2])");
    EXPECT_FALSE(JsonDocument::read(R"(["refused",3)"));
    EXPECT_EQ(numberIn(read(shortText(4))), 4);

    EXPECT_EQ(first.root().list()->first().text(), u"first"_s);
    EXPECT_EQ(second.root().list()->first().text(), u"second"_s);
}

TEST(JsonDocument, staysReadableWhenOthersAreGone)
{
    auto first = std::make_unique<JsonDocument>(read(shortText(1)));
    const JsonDocument second = read(shortText(2));
    first.reset();
    const JsonDocument third = read(shortText(3));

    EXPECT_EQ(numberIn(second), 2);
    EXPECT_EQ(numberIn(third), 3);
}

TEST(JsonDocument, staysReadableWhenItMovesAndWithoutItsText)
{
    auto text = std::make_unique<QByteArray>(R"(["kept",1])");
    JsonDocument first = read(*text);
    text->fill('x');
    text.reset();
    const JsonDocument moved = std::move(first);
    const JsonDocument other = read(R"(["other",2])");

    EXPECT_EQ(moved.root().list()->first().text(), u"kept"_s);
}

TEST(JsonDocument, mayBeShortAfterALongOne)
{
    for (const qsizetype bytes : { 20'000'000, 1'000, 2'000'000, 6'000 }) {
        EXPECT_EQ(numberIn(read(longText(bytes, 7))), 7) << bytes;
        EXPECT_EQ(numberIn(read(shortText(8))), 8) << bytes;
    }
}

TEST(JsonDocument, leavesNoLargeBuffersBehind)
{
    // On a thread of its own, which begins with nothing that tests before this one may have left.
    std::thread([] {
        EXPECT_EQ(numberIn(read(shortText(1))), 1);
        const std::size_t before = bytesInUse();

        EXPECT_EQ(numberIn(read(longText(20'000'000, 7))), 7);

        EXPECT_LT(bytesInUse(), before + 1'000'000);
    }).join();
}

TEST(JsonDocument, leavesNoBuffersBehindOnceTheyAreDropped)
{
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "AddressSanitizer's own memory is not counted";
#endif
    std::thread([] {
        const std::size_t before = bytesInUse();
        EXPECT_EQ(numberIn(read(longText(500'000, 1))), 1);
        ASSERT_GT(bytesInUse(), before + 500'000);

        JsonDocument::dropBuffers();

        EXPECT_LT(bytesInUse(), before + 10'000);
        EXPECT_EQ(numberIn(read(shortText(2))), 2);
        JsonDocument::dropBuffers();
    }).join();
}

TEST(JsonDocument, staysReadableWhenBuffersAreDropped)
{
    const JsonDocument document = read(shortText(1));

    JsonDocument::dropBuffers();
    JsonDocument::dropBuffers();

    EXPECT_EQ(numberIn(document), 1);
    EXPECT_EQ(numberIn(read(shortText(2))), 2);
}

TEST(JsonDocument, isReadableAfterARefusedOne)
{
    for (const char *refused : { "", "[", "[1,]", "[\"\xFF\"]", "[1e400]" }) {
        EXPECT_FALSE(JsonDocument::read(refused)) << refused;
        EXPECT_EQ(numberIn(read(shortText(2))), 2) << refused;
    }
}

TEST(JsonDocument, isReadOnSeveralThreadsAtOnce)
{
    // Many and short: what threads must not share is held for moments only.
    constexpr int rounds = 50'000;
    std::vector<int> good(4);
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < good.size(); ++number)
        threads.emplace_back([&good, number] {
            for (int round = 0; round < rounds; ++round) {
                const auto own = static_cast<qint64>(number) * rounds + round;
                good[number] += read(QByteArray::number(own)).root().integer() == own;
            }
        });
    for (std::thread &thread : threads)
        thread.join();

    EXPECT_THAT(good, Each(rounds));
}

} // namespace
} // namespace glimmet
