#include "app/FeedHost.h"

#include "platform/bus/SessionBus.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/PrivateBus.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

class FeedHostTest : public testing::Test {
protected:
    FeedHostTest()
        : bar(daemon.peer(QStringLiteral("bar")))
    {
        bus.open();
    }
    ~FeedHostTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("bar")); }

    PrivateBus daemon;
    QDBusConnection bar;
    ManualClock clock;
    ManualTimers timers{ clock };
    SessionBus bus{ timers };
};

TEST_F(FeedHostTest, isAvailableWhileAFeedIsRead)
{
    const FeedHost host(bus);
    const QSignalSpy changes(&host, &FeedHost::availabilityChanged);
    EXPECT_FALSE(host.isAvailable());

    bar.registerService(FeedHost::feedName);
    EXPECT_TRUE(waitFor([&] { return host.isAvailable(); }));
    bar.unregisterService(FeedHost::feedName);
    EXPECT_TRUE(waitFor([&] { return !host.isAvailable(); }));

    EXPECT_EQ(changes.count(), 2);
}

TEST_F(FeedHostTest, findsAFeedThatIsReadAlready)
{
    bar.registerService(FeedHost::feedName);

    EXPECT_TRUE(FeedHost(bus).isAvailable());
}

TEST_F(FeedHostTest, isGoneWithTheBusAndBackWithIt)
{
    bar.registerService(FeedHost::feedName);
    const FeedHost host(bus);

    daemon.kill();
    ASSERT_TRUE(waitFor([&] { return !host.isAvailable(); }));
    daemon.start();
    QDBusConnection another = daemon.peer(QStringLiteral("another"));
    another.registerService(FeedHost::feedName);
    timers.advance(2s);

    EXPECT_TRUE(waitFor([&] { return host.isAvailable(); }));
    QDBusConnection::disconnectFromBus(QStringLiteral("another"));
}

} // namespace
} // namespace glimmet
