#include "platform/desktop/BarColors.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace I3Ipc;

TEST(I3Ipc, givesWhatItWasGivenMessageByMessage)
{
    QByteArray buffer = message(Type::GetBarConfig, "one") + message(Type::GetBarConfig, "two");
    const QByteArray last = buffer.right(1);
    buffer.chop(1);

    EXPECT_EQ(takePayload(buffer), "one");
    EXPECT_EQ(takePayload(buffer), std::nullopt);
    buffer += last;
    EXPECT_EQ(takePayload(buffer), "two");
    EXPECT_TRUE(buffer.isEmpty());
}

TEST(I3Ipc, throwsAwayWhatIsNoMessageOrTooLong)
{
    QByteArray noise(20, 'x');
    EXPECT_EQ(takePayload(noise), std::nullopt);
    EXPECT_TRUE(noise.isEmpty());

    QByteArray huge = message(Type::GetBarConfig, {});
    huge[9] = char(0x7f);
    EXPECT_EQ(takePayload(huge), std::nullopt);
    EXPECT_TRUE(huge.isEmpty());
}

TEST(I3Ipc, takesTheFirstBar)
{
    EXPECT_EQ(firstBar(R"(["bar-0","bar-1"])"), QStringLiteral("bar-0"));
    EXPECT_EQ(firstBar("[]"), QString());
    EXPECT_EQ(firstBar("{}"), QString());
}

TEST(I3Ipc, readsTheColoursOfABarWithoutTheirOpacity)
{
    const auto colors =
        barColors(R"({"id":"bar-0","colors":{"background":"#10203080","statusline":"#ffeedd"}})");

    EXPECT_EQ(colors, (BarColors{ QColor(0x10, 0x20, 0x30), QColor(0xff, 0xee, 0xdd) }));
}

TEST(I3Ipc, takesTheUsualColoursWhereTheUserHasSetNone)
{
    const BarColors usual{ Qt::black, Qt::white };

    EXPECT_EQ(barColors(R"({"id":"bar-0","colors":{}})"), usual);
    EXPECT_EQ(barColors(R"({"id":"bar-0","colors":{"background":"red-ish"}})"), usual);
}

TEST(I3Ipc, takesNoColoursInWhichNothingCouldBeRead)
{
    EXPECT_EQ(barColors(R"({"id":"b","colors":{"background":"#ffffff"}})"), std::nullopt);
    EXPECT_EQ(barColors(R"({"success":false})"), std::nullopt);
    EXPECT_EQ(barColors("no"), std::nullopt);
}

} // namespace
} // namespace glimmet
