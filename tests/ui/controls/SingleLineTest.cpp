#include "tests/support/Printing.h"
#include "ui/controls/LineText.h"

#include <gtest/gtest.h>

namespace glimmet {

namespace {

/// Where `position` of `text` stands in its line.
int movedTo(const QString &text, int position)
{
    singleLine(text, &position);
    return position;
}

} // namespace

TEST(SingleLine, aTextWithoutBreaksStaysAsItIs)
{
    EXPECT_EQ(
        singleLine(QStringLiteral("  one\ttwo 👩‍👧 ")), QStringLiteral("  one\ttwo 👩‍👧 "));
    EXPECT_EQ(singleLine(QString()), QString());
}

TEST(SingleLine, eachBreakIsOneBlank)
{
    EXPECT_EQ(singleLine(QStringLiteral("a\nb\rc\u2028d\u2029e")), QStringLiteral("a b c d e"));
}

TEST(SingleLine, aPairIsOneBreak)
{
    EXPECT_EQ(singleLine(QStringLiteral("a\r\nb")), QStringLiteral("a b"));
    EXPECT_EQ(singleLine(QStringLiteral("a\r\n\r\nb")), QStringLiteral("a  b"));
    EXPECT_EQ(singleLine(QStringLiteral("a\n\rb")), QStringLiteral("a  b"));
}

TEST(SingleLine, breaksAtTheEndsAreBlanksToo)
{
    EXPECT_EQ(singleLine(QStringLiteral("\nkey\r\n")), QStringLiteral(" key "));
    EXPECT_EQ(singleLine(QStringLiteral("\r\n")), QStringLiteral(" "));
}

TEST(SingleLine, aPositionStaysBeforeItsCharacter)
{
    const QString text = QStringLiteral("a\r\nb\nc");

    EXPECT_EQ(movedTo(text, 0), 0);
    EXPECT_EQ(movedTo(text, 1), 1);
    EXPECT_EQ(movedTo(text, 3), 2);
    EXPECT_EQ(movedTo(text, 5), 4);
    EXPECT_EQ(movedTo(text, 6), 5);
}

} // namespace glimmet
