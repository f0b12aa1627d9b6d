#include "platform/bus/SessionBus.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/PrivateBus.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

TEST(SessionBus, connectsAtOnceWhereThereIsABus)
{
    const PrivateBus daemon;
    ManualTimers timers;
    SessionBus bus(timers);

    bus.open();

    EXPECT_TRUE(bus.isConnected());
    EXPECT_EQ(bus.ownerOf(QStringLiteral("org.freedesktop.DBus")), QStringLiteral("org.freedesktop.DBus"));
    EXPECT_TRUE(bus.ownerOf(QStringLiteral("nobody.has.this")).isEmpty());
}

TEST(SessionBus, outlivesTheBusAndConnectsAgainWhenItIsBack)
{
    PrivateBus daemon;
    ManualTimers timers;
    SessionBus bus(timers);
    bus.open();
    QSignalSpy lost(&bus, &SessionBus::lost);
    QSignalSpy connected(&bus, &SessionBus::connected);

    daemon.kill();
    ASSERT_TRUE(waitFor([&] { return lost.count() == 1; }));
    EXPECT_FALSE(bus.isConnected());
    timers.advance(10s);
    daemon.start();
    EXPECT_FALSE(bus.isConnected());

    timers.advance(2s);
    EXPECT_TRUE(bus.isConnected());
    EXPECT_EQ(connected.count(), 1);
}

TEST(SessionBus, triesEveryTwoSecondsUntilThereIsABus)
{
    PrivateBus daemon;
    daemon.kill();
    ManualTimers timers;
    SessionBus bus(timers);
    bus.open();
    timers.advance(20s);
    daemon.start();

    timers.advance(1999ms);
    EXPECT_FALSE(bus.isConnected());

    timers.advance(1ms);
    EXPECT_TRUE(bus.isConnected());
    EXPECT_TRUE(timers.running().empty());
}

TEST(SessionBus, neverLaunchesABusOfItsOwn)
{
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    ManualTimers timers;
    SessionBus bus(timers);

    bus.open();

    EXPECT_FALSE(bus.isConnected());
}

} // namespace
} // namespace glimmet
