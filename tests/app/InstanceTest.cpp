#include "platform/Instance.h"
#include "platform/SessionBus.h"
#include "tests/support/PrivateBus.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

TEST(Instance, keepsItsNameAndHandsNothingOverWhenItIsTheFirst)
{
    const PrivateBus daemon;
    SessionBus bus;
    bus.open();
    Instance instance(bus);

    EXPECT_EQ(instance.handOver(), Instance::Launch::First);
    EXPECT_EQ(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());
}

TEST(Instance, runsOnWithoutABus)
{
    SessionBus bus;
    bus.open();
    Instance instance(bus);

    EXPECT_EQ(instance.handOver(), Instance::Launch::First);
}

TEST(Instance, tellsThatItWasLaunchedAgain)
{
    const PrivateBus daemon;
    SessionBus bus;
    bus.open();
    Instance instance(bus);
    QSignalSpy launched(&instance, &Instance::launchedAgain);
    const QDBusConnection second = daemon.peer(QStringLiteral("second"));

    const QDBusMessage reply = call(second, QStringLiteral("/me/kerno/glimmet"),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("Activate"), { QVariantMap() });

    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(launched.count(), 1);
    QDBusConnection::disconnectFromBus(QStringLiteral("second"));
}

TEST(Instance, takesItsNameAgainWhenTheBusIsBack)
{
    PrivateBus daemon;
    SessionBus bus;
    bus.open();
    const Instance instance(bus);
    QSignalSpy connected(&bus, &SessionBus::connected);

    daemon.kill();
    daemon.start();
    ASSERT_TRUE(waitFor([&] { return connected.count() == 1; }));

    EXPECT_EQ(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());
}

TEST(Instance, keepsItsNameWhenTheProgramComesBackAsANewParticipant)
{
    const PrivateBus daemon;
    SessionBus bus;
    bus.open();
    const Instance instance(bus);
    const QDBusConnection heldElsewhere = bus.connection();

    bus.reopen();

    EXPECT_NE(bus.connection().baseService(), heldElsewhere.baseService());
    EXPECT_EQ(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());
}

} // namespace
} // namespace glimmet
