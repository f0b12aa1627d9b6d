#include "ui/controls/LineText.h"

#include <gtest/gtest.h>

namespace glimmet {

namespace {

/// The length of the emoji at the end of `text`.
int lengthAtEnd(const QString &text)
{
    return emojiLengthBefore(text, static_cast<int>(text.size()));
}

} // namespace

TEST(Emoji, familiesFlagsAndHandsAreWhole)
{
    EXPECT_EQ(lengthAtEnd(QStringLiteral("a👨‍👩‍👧")), 8);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("🇫🇷🇩🇪")), 4);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("👍🏽")), 4);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("❤️")), 2);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("1️⃣")), 3);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("🏳️‍🌈")), 6);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("🏴󠁧󠁢󠁳󠁣󠁴󠁿")), 14);
}

TEST(Emoji, oneCodePointIsForTheToolkit)
{
    EXPECT_EQ(lengthAtEnd(QStringLiteral("a🙂")), 0);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("a")), 0);
    EXPECT_EQ(lengthAtEnd(QString()), 0);
}

TEST(Emoji, lettersLoseTheirMarksOneByOne)
{
    EXPECT_EQ(lengthAtEnd(QStringLiteral("e\u0301")), 0);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("\u0915\u094d\u200d")), 0);
    EXPECT_EQ(lengthAtEnd(QStringLiteral("\r\n")), 0);
}

TEST(Emoji, onlyWhatStandsBeforeThePositionCounts)
{
    EXPECT_EQ(emojiLengthBefore(QStringLiteral("👍🏽x"), 4), 4);
    EXPECT_EQ(emojiLengthBefore(QStringLiteral("👍🏽x"), 5), 0);
    EXPECT_EQ(emojiLengthBefore(QStringLiteral("👍🏽x"), 0), 0);
}

TEST(Emoji, isFoundBehindALongText)
{
    EXPECT_EQ(lengthAtEnd(QString(1'000'000, u'x') + QStringLiteral("🇩🇪")), 4);
}

} // namespace glimmet
