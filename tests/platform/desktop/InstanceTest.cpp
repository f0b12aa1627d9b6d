#include "platform/desktop/Instance.h"
#include "platform/bus/SessionBus.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/PrivateBus.h"

#include <QDBusVirtualObject>
#include <QSignalSpy>
#include <QThread>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

TEST(Instance, keepsItsNameAndHandsNothingOverWhenItIsTheFirst)
{
    const PrivateBus daemon;
    ManualTimers timers;
    SessionBus bus(timers);
    bus.open();
    Instance instance(bus);

    EXPECT_EQ(instance.handOver(), Instance::Launch::First);
    EXPECT_EQ(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());
}

/// Has the program's name, and leaves the bus when it is asked to open its panel.
class EndingInstance final : public QDBusVirtualObject {
public:
    explicit EndingInstance(QDBusConnection connection)
    {
        connection.registerVirtualObject(QStringLiteral("/me/kerno/glimmet"), this);
        connection.registerService(QStringLiteral("me.kerno.glimmet"));
        moveToThread(&m_thread);
        m_thread.start();
    }
    ~EndingInstance() override
    {
        m_thread.quit();
        m_thread.wait();
    }
    Q_DISABLE_COPY_MOVE(EndingInstance)

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &, const QDBusConnection &connection) override
    {
        QDBusConnection::disconnectFromBus(connection.name());
        return true;
    }

private:
    QThread m_thread;
};

TEST(Instance, takesTheNameOfOneThatEndsInsteadOfAnswering)
{
    const PrivateBus daemon;
    const EndingInstance before(daemon.peer(QStringLiteral("before")));
    ManualTimers timers;
    SessionBus bus(timers);
    bus.open();
    Instance instance(bus);
    ASSERT_NE(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());

    EXPECT_EQ(instance.handOver(), Instance::Launch::First);

    EXPECT_EQ(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());
}

TEST(Instance, runsOnWithoutABus)
{
    ManualTimers timers;
    SessionBus bus(timers);
    bus.open();
    Instance instance(bus);

    EXPECT_EQ(instance.handOver(), Instance::Launch::First);
}

TEST(Instance, tellsThatItWasLaunchedAgain)
{
    const PrivateBus daemon;
    ManualTimers timers;
    SessionBus bus(timers);
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
    ManualTimers timers;
    SessionBus bus(timers);
    bus.open();
    const Instance instance(bus);
    const QSignalSpy lost(&bus, &SessionBus::lost);

    daemon.kill();
    ASSERT_TRUE(waitFor([&] { return lost.count() == 1; }));
    daemon.start();
    timers.advance(2s);
    ASSERT_TRUE(bus.isConnected());

    EXPECT_EQ(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());
}

TEST(Instance, keepsItsNameWhenTheProgramComesBackAsANewParticipant)
{
    const PrivateBus daemon;
    ManualTimers timers;
    SessionBus bus(timers);
    bus.open();
    const Instance instance(bus);
    const QDBusConnection heldElsewhere = bus.connection();

    bus.reopen();

    EXPECT_NE(bus.connection().baseService(), heldElsewhere.baseService());
    EXPECT_EQ(bus.ownerOf(QStringLiteral("me.kerno.glimmet")), bus.connection().baseService());
}

} // namespace
} // namespace glimmet
