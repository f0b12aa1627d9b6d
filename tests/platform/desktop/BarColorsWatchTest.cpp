#include "platform/desktop/BarColorsWatch.h"

#include "tests/support/FakeI3.h"
#include "tests/support/PrivateBus.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using I3Ipc::Type;

class BarColorsAsked : public testing::Test {
protected:
    BarColorsAsked() { i3.meet(); }

    void answer(const QByteArray &payload) const { i3.say(I3Ipc::message(Type::GetBarConfig, payload)); }
    bool hasAsked(const QByteArray &bar) const
    {
        return waitFor([&] { return i3.heard() == I3Ipc::message(Type::GetBarConfig, bar); });
    }
    bool hasLeft() const
    {
        return waitFor([this] { return i3.heard().isEmpty(); });
    }

    FakeI3 i3;
    BarColorsWatch watch{ i3.path() };
    QSignalSpy found{ &watch, &BarColorsWatch::found };
};

TEST_F(BarColorsAsked, areThoseOfTheFirstBar)
{
    ASSERT_TRUE(hasAsked(""));
    answer(R"(["bar-7","bar-8"])");
    ASSERT_TRUE(hasAsked("bar-7"));
    answer(R"({"id":"bar-7","colors":{"background":"#102030","statusline":"#ffeedd"}})");

    EXPECT_TRUE(hasLeft());
    ASSERT_EQ(found.count(), 1);
    EXPECT_EQ(
        found[0][0].value<BarColors>(), (BarColors{ QColor(0x10, 0x20, 0x30), QColor(0xff, 0xee, 0xdd) }));
}

TEST_F(BarColorsAsked, areNoneWhereThereIsNoBar)
{
    ASSERT_TRUE(hasAsked(""));
    answer("[]");

    EXPECT_TRUE(hasLeft());
    EXPECT_EQ(found.count(), 0);
}

TEST_F(BarColorsAsked, areNoneWhereTheAnswerIsNonsense)
{
    ASSERT_TRUE(hasAsked(""));
    answer(R"(["bar-0"])");
    answer(R"({"success":false})");

    ASSERT_TRUE(hasAsked("bar-0"));
    EXPECT_TRUE(hasLeft());
    EXPECT_EQ(found.count(), 0);
}

} // namespace
} // namespace glimmet
