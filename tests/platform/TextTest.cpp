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

} // namespace
} // namespace glimmet
