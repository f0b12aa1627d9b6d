#include "platform/desktop/PortalLoginItem.h"
#include "platform/bus/SessionBus.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The desktop's background portal.
class Portal final : public QDBusVirtualObject {
public:
    explicit Portal(QDBusConnection connection)
        : m_connection(std::move(connection))
    {
        m_connection.registerVirtualObject(u"/org/freedesktop/portal/desktop"_s, this);
        m_connection.registerService(u"org.freedesktop.portal.Desktop"_s);
    }
    ~Portal() override { leave(m_connection.name(), u"/org/freedesktop/portal/desktop"_s); }
    Q_DISABLE_COPY_MOVE(Portal)

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        asked = qdbus_cast<QVariantMap>(message.arguments().value(1));
        if (refuses)
            return connection.send(
                message.createErrorReply(QDBusError::AccessDenied, u"not in this session"_s));
        const QString path = u"/org/freedesktop/portal/desktop/request/"_s
            + message.service().mid(1).replace(u'.', u'_') + u'/' + asked.value(u"handle_token"_s).toString();
        connection.send(message.createReply(QVariant::fromValue(QDBusObjectPath(path))));
        if (!responds)
            return true;
        QDBusMessage response =
            QDBusMessage::createSignal(path, u"org.freedesktop.portal.Request"_s, u"Response"_s);
        response << status << QVariantMap{ { u"background"_s, true }, { u"autostart"_s, grants(asked) } };
        return connection.send(response);
    }

    bool refuses = false;
    bool responds = true; ///< else the user still thinks about it
    uint status = 0;
    bool grantsAutostart = true;
    QVariantMap asked;

private:
    bool grants(const QVariantMap &wishes) const
    {
        return grantsAutostart && wishes.value(u"autostart"_s).toBool();
    }

    QDBusConnection m_connection;
};

class PortalLoginItemTest : public testing::Test {
protected:
    PortalLoginItemTest() { bus.open(); }

    std::optional<QString> failureOf(void (PortalLoginItem::*operation)(const LoginItem::Completion &))
    {
        bool isAnswered = false;
        std::optional<QString> failure;
        (item.*operation)([&](const auto &answer) {
            isAnswered = true;
            failure = answer;
        });
        EXPECT_TRUE(waitFor([&] { return isAnswered; }));
        return failure;
    }

    PrivateBus daemon;
    Portal portal{ daemon.peer(u"desktop"_s) };
    ManualTimers timers;
    SessionBus bus{ timers };
    PortalLoginItem item{ bus, { u"glimmet"_s } };
};

TEST_F(PortalLoginItemTest, asksToBeStartedAtLogin)
{
    EXPECT_EQ(failureOf(&PortalLoginItem::registerItem), std::nullopt);

    EXPECT_EQ(item.status(), LoginItemStatus::Enabled);
    EXPECT_EQ(portal.asked.value(u"autostart"_s), QVariant(true));
    EXPECT_EQ(qdbus_cast<QStringList>(portal.asked.value(u"commandline"_s)), QStringList{ u"glimmet"_s });
}

TEST_F(PortalLoginItemTest, takesItBack)
{
    failureOf(&PortalLoginItem::registerItem);

    EXPECT_EQ(failureOf(&PortalLoginItem::unregisterItem), std::nullopt);

    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
    EXPECT_EQ(portal.asked.value(u"autostart"_s), QVariant(false));
}

TEST_F(PortalLoginItemTest, saysThatTheUserDidNotAgree)
{
    portal.status = 1;

    EXPECT_EQ(failureOf(&PortalLoginItem::registerItem), u"the desktop did not agree"_s);
    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
}

TEST_F(PortalLoginItemTest, takesBackgroundWithoutLoginForARefusal)
{
    portal.grantsAutostart = false;

    EXPECT_EQ(failureOf(&PortalLoginItem::registerItem), u"the desktop did not agree"_s);
    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
}

TEST_F(PortalLoginItemTest, saysWhyThePortalRefuses)
{
    portal.refuses = true;

    EXPECT_EQ(failureOf(&PortalLoginItem::registerItem), u"not in this session"_s);
    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
}

TEST_F(PortalLoginItemTest, saysThatThereIsNoBus)
{
    const QSignalSpy losses(&bus, &SessionBus::lost);
    daemon.kill();
    ASSERT_TRUE(waitFor([&losses] { return !losses.isEmpty(); }));

    EXPECT_EQ(failureOf(&PortalLoginItem::registerItem), u"there is no session bus"_s);
    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
}

TEST_F(PortalLoginItemTest, saysThatTheBusEndedBeforeTheUserAnswered)
{
    portal.responds = false;
    std::optional<QString> failure;
    item.registerItem([&](const auto &answer) { failure = answer; });
    ASSERT_TRUE(waitFor([this] { return !portal.asked.isEmpty(); }));

    daemon.kill();

    EXPECT_TRUE(waitFor([&failure] { return failure.has_value(); }));
    EXPECT_EQ(item.status(), LoginItemStatus::NotRegistered);
}

TEST_F(PortalLoginItemTest, asksOnTheBusThatThereIsNow)
{
    ASSERT_EQ(failureOf(&PortalLoginItem::unregisterItem), std::nullopt);
    const QSignalSpy losses(&bus, &SessionBus::lost);
    daemon.kill();
    ASSERT_TRUE(waitFor([&losses] { return !losses.isEmpty(); }));
    QDBusConnection::disconnectFromBus(u"desktop"_s);
    daemon.start();
    const Portal next(daemon.peer(u"desktop"_s));
    timers.advance(2s);
    ASSERT_TRUE(bus.isConnected());

    EXPECT_EQ(failureOf(&PortalLoginItem::registerItem), std::nullopt);

    EXPECT_EQ(item.status(), LoginItemStatus::Enabled);
}

TEST(PortalLoginItemChoice, isForProgramsOfASnapAndNotForThoseThatASnapStarts)
{
    ASSERT_FALSE(PortalLoginItem::isNeeded(u"/usr/bin/glimmet"_s));
    qputenv("SNAP", "/snap/glimmet/7");

    const bool isForItsOwn = PortalLoginItem::isNeeded(u"/snap/glimmet/7/usr/bin/glimmet"_s);
    const bool isForAnother = PortalLoginItem::isNeeded(u"/usr/bin/glimmet"_s);
    qunsetenv("SNAP");

    EXPECT_TRUE(isForItsOwn);
    EXPECT_FALSE(isForAnother);
}

} // namespace
} // namespace glimmet
