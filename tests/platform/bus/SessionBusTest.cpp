#include "platform/bus/SessionBus.h"
#include "tests/support/PrivateBus.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

TEST(SessionBus, connectsAtOnceWhereThereIsABus)
{
    const PrivateBus daemon;
    SessionBus bus;

    bus.open();

    EXPECT_TRUE(bus.isConnected());
    EXPECT_EQ(bus.ownerOf(QStringLiteral("org.freedesktop.DBus")), QStringLiteral("org.freedesktop.DBus"));
    EXPECT_TRUE(bus.ownerOf(QStringLiteral("nobody.has.this")).isEmpty());
}

TEST(SessionBus, outlivesTheBusAndConnectsAgainWhenItIsBack)
{
    PrivateBus daemon;
    SessionBus bus;
    bus.open();
    QSignalSpy lost(&bus, &SessionBus::lost);
    QSignalSpy connected(&bus, &SessionBus::connected);

    daemon.kill();
    ASSERT_TRUE(waitFor([&] { return lost.count() == 1; }));
    EXPECT_FALSE(bus.isConnected());
    daemon.start();

    EXPECT_TRUE(waitFor([&] { return connected.count() == 1; }));
    EXPECT_TRUE(bus.isConnected());
}

TEST(SessionBus, neverLaunchesABusOfItsOwn)
{
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    SessionBus bus;

    bus.open();

    EXPECT_FALSE(bus.isConnected());
}

} // namespace
} // namespace glimmet
