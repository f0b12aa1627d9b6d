#include "platform/bus/SystemBus.h"
#include "tests/support/PrivateBus.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace glimmet {
namespace {

class SystemBusTest : public testing::Test {
protected:
    void open()
    {
        bus->open([this](const QDBusConnection &made) { connection = made; });
    }

    PrivateBus daemon;
    std::unique_ptr<SystemBus> bus =
        std::make_unique<SystemBus>(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"));
    std::optional<QDBusConnection> connection;
};

TEST_F(SystemBusTest, isReachedFromTheEventLoop)
{
    open();

    EXPECT_FALSE(connection.has_value());
    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    EXPECT_TRUE(connection->isConnected());
}

TEST_F(SystemBusTest, keepsItsConnectionUntilItIsClosed)
{
    open();
    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    const QString first = connection->baseService();
    connection.reset();

    open();
    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    EXPECT_EQ(connection->baseService(), first);

    connection.reset();
    bus->close();
    open();
    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    EXPECT_NE(connection->baseService(), first);
}

TEST_F(SystemBusTest, isMadeAnewAfterItWasLost)
{
    open();
    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    daemon.kill();
    ASSERT_TRUE(waitFor([this] { return !connection->isConnected(); }));
    daemon.start();
    connection.reset();

    open();

    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    EXPECT_TRUE(connection->isConnected());
}

TEST_F(SystemBusTest, saysSoWhereThereIsNone)
{
    daemon.kill();

    open();

    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    EXPECT_FALSE(connection->isConnected());
}

TEST_F(SystemBusTest, holdsNobodyUpWhileItDoesNotAnswer)
{
    daemon.halt();
    QElapsedTimer watch;
    watch.start();

    open();
    QTest::qWait(50);
    bus.reset();

    EXPECT_LT(watch.elapsed(), 1000);
    daemon.goOn();
}

TEST_F(SystemBusTest, isNotHandedOutAfterItWasClosed)
{
    bool isCalled = false;
    bus->open([&](const QDBusConnection &) { isCalled = true; });
    bus->close();

    open();

    ASSERT_TRUE(waitFor([this] { return connection.has_value(); }));
    EXPECT_FALSE(isCalled);
}

TEST_F(SystemBusTest, holdsNobodyUpWhileAnotherBusIsInUse)
{
    PrivateBus other;
    const QDBusConnection inUse = other.peer(QStringLiteral("in-use"));
    daemon.halt();

    open();
    const QDBusMessage reply =
        call(inUse, QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
            QStringLiteral("GetId"), {}, QStringLiteral("org.freedesktop.DBus"));

    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    EXPECT_FALSE(connection.has_value());
    daemon.goOn();
    EXPECT_TRUE(waitFor([this] { return connection.has_value(); }));
    QDBusConnection::disconnectFromBus(QStringLiteral("in-use"));
}

} // namespace
} // namespace glimmet
