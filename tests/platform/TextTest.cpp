#include "platform/Text.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(TrimmedBlanks, takesSpacesAndTabsFromBothEndsOnly)
{
    EXPECT_EQ(trimmedBlanks(u" \t a b\t "_s), u"a b"_s);
    EXPECT_EQ(trimmedBlanks(u"\u00A0\u2003a\u3000"_s), u"a"_s);
    EXPECT_EQ(trimmedBlanks(u"a"_s), u"a"_s);
}

TEST(TrimmedBlanks, leavesLineBreaksAndWhatTheyGuard)
{
    EXPECT_EQ(trimmedBlanks(u" \n a \r\n "_s), u"\n a \r\n"_s);
}

TEST(TrimmedBlanks, leavesNothingOfBlanksOnly)
{
    EXPECT_EQ(trimmedBlanks(u" \t "_s), QString());
    EXPECT_EQ(trimmedBlanks(QString()), QString());
}

TEST(Shortened, countsAsAReaderDoesAndEndsInAnEllipsisWhereItCuts)
{
    EXPECT_EQ(shortened(u"12:00"_s, 5), u"12:00"_s);
    EXPECT_EQ(shortened(u"12:00:00"_s, 5), u"12:0…"_s);
    EXPECT_EQ(shortened(u"e\u0301e\u0301👩‍🚀e\u0301e\u0301"_s, 4), u"e\u0301e\u0301👩‍🚀…"_s);
    EXPECT_EQ(shortened(u""_s, 2), u""_s);
}

} // namespace
} // namespace glimmet
