#include "platform/updates/PackageId.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(PackageId, hasFourParts)
{
    const PackageId id{ u"glimmet"_s, u"1.0-1"_s, u"amd64"_s, u"installed:test"_s };

    EXPECT_EQ(packageIdFrom(u"glimmet;1.0-1;amd64;installed:test"_s), id);
    EXPECT_EQ(textOf(id), u"glimmet;1.0-1;amd64;installed:test"_s);
}

TEST(PackageId, mayLeaveTheLastPartsEmpty)
{
    EXPECT_EQ(packageIdFrom(u"glimmet;;;"_s), (PackageId{ u"glimmet"_s, {}, {}, {} }));
}

TEST(PackageId, isNothingElse)
{
    for (const QString &text : { u""_s, u"glimmet"_s, u"glimmet;1.0;amd64"_s, u";1.0;amd64;test"_s,
             u"glimmet;1.0;amd64;test;more"_s })
        EXPECT_EQ(packageIdFrom(text), std::nullopt) << text.toStdString();
}

class OrderOfVersions : public testing::TestWithParam<std::pair<const char *, const char *>> {};

TEST_P(OrderOfVersions, sortsTheFirstBeforeTheSecond)
{
    const QString older = QString::fromUtf8(GetParam().first);
    const QString newer = QString::fromUtf8(GetParam().second);

    EXPECT_LT(compareVersions(older, newer), 0);
    EXPECT_GT(compareVersions(newer, older), 0);
    EXPECT_EQ(compareVersions(older, older), 0);
}

INSTANTIATE_TEST_SUITE_P(Versions, OrderOfVersions,
    testing::Values(std::pair("1.0", "1.1"), std::pair("1.9", "1.10"), std::pair("1.0-1", "1.0-2"),
        std::pair("1.0~beta1", "1.0"), std::pair("1.0~~", "1.0~"), std::pair("1.0", "1.0+b1"),
        std::pair("1.0a", "1.0+"), std::pair("1.0", "1.0a"), std::pair("2.0", "1:1.0"),
        std::pair("1.0-1", "1.0-1.1"), std::pair("1.0", "1.0-1"), std::pair("1-2-3", "1-3-1"),
        std::pair("99999999999999999998", "99999999999999999999"), std::pair("", "0a")));

TEST(VersionOrder, takesLeadingZerosForNothing)
{
    EXPECT_EQ(compareVersions(u"1.01"_s, u"1.1"_s), 0);
    EXPECT_EQ(compareVersions(u"0:1.0"_s, u"1.0"_s), 0);
    EXPECT_EQ(compareVersions(u"1.0-0"_s, u"1.0"_s), 0);
}

} // namespace
} // namespace glimmet
