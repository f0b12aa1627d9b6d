#include "core/PreferencesKeys.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(PreferencesKeys, areThoseOfTheFilesThatUsersHave)
{
    EXPECT_EQ(PreferencesKeys::quotes, u"me.kerno.glimmet.quotes"_s);
    EXPECT_EQ(PreferencesKeys::deadlines, u"me.kerno.glimmet.deadlines"_s);
    EXPECT_EQ(PreferencesKeys::cryptoSymbols, u"glimmet.cryptoSymbols"_s);
}

} // namespace
} // namespace glimmet
