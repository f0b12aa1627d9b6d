#include "platform/desktop/BarColors.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace I3Ipc;

TEST(BarColors, takesTheFirstBar)
{
    EXPECT_EQ(firstBar(R"(["bar-0","bar-1"])"), QStringLiteral("bar-0"));
    EXPECT_EQ(firstBar("[]"), QString());
    EXPECT_EQ(firstBar("{}"), QString());
}

TEST(BarColors, readsTheColoursOfABarWithoutTheirOpacity)
{
    const auto colors =
        barColors(R"({"id":"bar-0","colors":{"background":"#10203080","statusline":"#ffeedd"}})");

    EXPECT_EQ(colors, (BarColors{ QColor(0x10, 0x20, 0x30), QColor(0xff, 0xee, 0xdd) }));
}

TEST(BarColors, takesTheUsualColoursWhereTheUserHasSetNone)
{
    const BarColors usual{ Qt::black, Qt::white };

    EXPECT_EQ(barColors(R"({"id":"bar-0","colors":{}})"), usual);
    EXPECT_EQ(barColors(R"({"id":"bar-0","colors":{"background":"red-ish"}})"), usual);
}

TEST(BarColors, takesNoColoursInWhichNothingCouldBeRead)
{
    EXPECT_EQ(barColors(R"({"id":"b","colors":{"background":"#ffffff"}})"), std::nullopt);
    EXPECT_EQ(barColors(R"({"success":false})"), std::nullopt);
    EXPECT_EQ(barColors("no"), std::nullopt);
}

} // namespace
} // namespace glimmet
