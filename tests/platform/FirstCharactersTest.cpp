#include "platform/Text.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString family = u"👨‍👩‍👧‍👦"_s; // four people, three joiners
const QString accented = u"e\u0301"_s;

std::optional<QString> head(const QString &text, int count)
{
    return firstCharacters(text.toUtf8(), count);
}

TEST(FirstCharacters, isTheWholeTextWhereThatIsShort)
{
    EXPECT_EQ(head(u""_s, 300), u""_s);
    EXPECT_EQ(head(u"{}"_s, 300), u"{}"_s);
    EXPECT_EQ(head(QString(300, u'x'), 300), QString(300, u'x'));
}

TEST(FirstCharacters, isCutBehindThatManyCharacters)
{
    EXPECT_EQ(head(QString(301, u'x'), 300), QString(300, u'x'));
    EXPECT_EQ(head(QString(1'000'000, u'x'), 300), QString(300, u'x'));
    EXPECT_EQ(head(QString(1'000'000, u'x'), 100'000), QString(100'000, u'x'));
    EXPECT_EQ(head(u"x"_s, 0), u""_s);
}

TEST(FirstCharacters, countsACharacterOutsideTheBasicPlaneAsOne)
{
    EXPECT_EQ(head(u"a💰b"_s, 2), u"a💰"_s);
    EXPECT_EQ(head(u"💰💰💰"_s, 2), u"💰💰"_s);
}

TEST(FirstCharacters, countsALetterWithItsAccentsAsOne)
{
    EXPECT_EQ(head(accented.repeated(3), 2), accented.repeated(2));
    EXPECT_EQ(head(u"e\u0301\u0323\u0330x"_s, 1), u"e\u0301\u0323\u0330"_s);
    EXPECT_EQ(head(u"\u1112\u1161\u11AB\uAE00"_s, 1), u"\u1112\u1161\u11AB"_s); // Hangul by its parts
    EXPECT_EQ(head(u"நிக"_s, 1), u"நி"_s);
}

TEST(FirstCharacters, countsAnEmojiOfManyPartsAsOne)
{
    EXPECT_EQ(head(u"a"_s + family + u"b"_s, 2), u"a"_s + family);
    EXPECT_EQ(head(family + family, 1), family);
    EXPECT_EQ(head(u"👍🏽👍"_s, 1), u"👍🏽"_s); // with a skin colour
    EXPECT_EQ(head(u"❤️x"_s, 1), u"❤️"_s); // with a variation selector
    EXPECT_EQ(head(u"1️⃣x"_s, 1), u"1️⃣"_s);
    EXPECT_EQ(head(u"🏳️‍🌈x"_s, 1), u"🏳️‍🌈"_s);
    EXPECT_EQ(head(u"🇨🇭🇩🇪"_s, 1), u"🇨🇭"_s);
    EXPECT_EQ(head(u"🏴󠁧󠁢󠁳󠁣󠁴󠁿x"_s, 1), u"🏴󠁧󠁢󠁳󠁣󠁴󠁿"_s);
}

TEST(FirstCharacters, countsALineBreakOfTwoCharactersAsOne)
{
    EXPECT_EQ(head(u"\r\n\r\nx"_s, 2), u"\r\n\r\n"_s);
    EXPECT_EQ(head(u"\n\nx"_s, 2), u"\n\n"_s);
}

TEST(FirstCharacters, neverEndsInsideACharacterWhereverThatLies)
{
    // Across every place at which a part of the text might be taken for the whole.
    for (const QString &character : { family, accented, u"💰"_s, u"👍🏽"_s }) {
        for (int before = 4050; before < 4100; ++before) {
            const QString text = QString(before, u'x') + character + QString(9000, u'y');

            ASSERT_EQ(head(text, before + 1), QString(before, u'x') + character) << before;
            ASSERT_EQ(head(text, before + 2), QString(before, u'x') + character + u'y') << before;
        }
    }
}

TEST(FirstCharacters, bearsACharacterOfAnyLength)
{
    const QString endless = u"e"_s + QString(1'000'000, u'\u0301');

    EXPECT_EQ(head(endless, 1), endless);
    EXPECT_EQ(head(endless + u"x"_s, 1), endless);
    EXPECT_EQ(head(endless + u"xy"_s, 2), endless + u"x"_s);
}

TEST(FirstCharacters, keepsNulCharacters)
{
    EXPECT_EQ(head(u"a\0b\0c"_s, 4), u"a\0b\0"_s);
}

TEST(FirstCharacters, passesOverAByteOrderMark)
{
    EXPECT_EQ(head(u"\uFEFFabc"_s, 2), u"ab"_s);
}

TEST(FirstCharacters, isNothingWhereTheBytesAreNoUtf8)
{
    for (const QByteArray &bytes : { "\xFF"_ba, "\x80"_ba, "a\xC3"_ba, "\xC0\xAF"_ba, "\xED\xA0\x80"_ba,
             "\xF4\x90\x80\x80"_ba, "caf\xE9"_ba, "\xF0\x9F\x92"_ba, "\xFF\xFEx\0"_ba })
        EXPECT_EQ(firstCharacters(bytes, 300), std::nullopt) << bytes.toPercentEncoding().toStdString();
}

TEST(FirstCharacters, isNothingWhereOnlyTheVeryEndIsNoUtf8)
{
    EXPECT_EQ(firstCharacters(QByteArray(10'000'000, 'x') + "\xE2\x82", 300), std::nullopt);
    EXPECT_EQ(firstCharacters(QByteArray(10'000'000, 'x') + "\xE2\x82\xAC", 300), QString(300, u'x'));
}

} // namespace
} // namespace glimmet
