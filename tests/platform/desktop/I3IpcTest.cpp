#include "platform/desktop/I3Ipc.h"

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

TEST(I3Ipc, knowsTheEventThatAWindowHasGotTheKeyboard)
{
    EXPECT_TRUE(isFocusEvent(R"({"change":"focus","container":{"id":7}})"));
    EXPECT_FALSE(isFocusEvent(R"({"change":"title","container":{"id":7}})"));
    EXPECT_FALSE(isFocusEvent(R"({"change":"focus","current":{"id":7}})")) << "of a workspace";
    EXPECT_FALSE(isFocusEvent(R"({"success":true})"));
    EXPECT_FALSE(isFocusEvent("no"));
}

} // namespace
} // namespace glimmet
