#include "core/HostText.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

TEST(HostText, leavesOrdinaryTextAsItIs)
{
    for (const char16_t *text : { u"deep work > busy work", u"<b>&amp;</b>", u"  two blanks  ",
             u"make it count ⚡️", u"👩‍👩‍👧 family", u"שלום", u"a\u00a0b", u"" })
        EXPECT_EQ(hostText(QString::fromUtf16(text)), QString::fromUtf16(text));
}

TEST(HostText, makesEachRunOfLineBreaksAndControlCharactersOneBlank)
{
    EXPECT_EQ(hostText(QStringLiteral("one\ntwo")), QStringLiteral("one two"));
    EXPECT_EQ(hostText(QStringLiteral("one\r\n\r\ntwo")), QStringLiteral("one two"));
    EXPECT_EQ(hostText(QStringLiteral("one\t\x07two")), QStringLiteral("one two"));
    EXPECT_EQ(
        hostText(QStringLiteral("one\u2028two\u2029three\u0085four")), QStringLiteral("one two three four"));
    EXPECT_EQ(hostText(QStringLiteral("\nedge\n")), QStringLiteral(" edge "));
}

TEST(HostText, keepsTheBlanksBesideALineBreak)
{
    EXPECT_EQ(hostText(QStringLiteral("one \n two")), QStringLiteral("one   two"));
}

TEST(HostText, replacesANullCharacterInsideTheText)
{
    EXPECT_EQ(hostText(QString(QStringLiteral("a") + QChar(0) + QStringLiteral("b"))), QStringLiteral("a b"));
}

TEST(HostText, hasInkWhereThereIsSomethingToSee)
{
    for (const char16_t *text :
        { u"a", u" . ", u"\uFEFFa", u"⚡️", u"👩‍💻", u"\u0301", u"\u00A9", u"한" })
        EXPECT_TRUE(hasInk(QString::fromUtf16(text))) << QString::fromUtf16(text).toStdString();
}

TEST(HostText, hasNoInkInBlanksAndInWhatShowsNothing)
{
    for (const char16_t *text : { u"", u" ", u"\t\n", u"\uFEFF", u"\u200B\u200D", u"\u00A0\u3000", u"\u2028",
             u"\u2800", u"\u3164", u"\uFE0F", u"\U000E0101", u"\u202E", u"\U000E0020" })
        EXPECT_FALSE(hasInk(QString::fromUtf16(text)))
            << QString::fromUtf16(text).toUtf8().toPercentEncoding().toStdString();
}

} // namespace
} // namespace glimmet
