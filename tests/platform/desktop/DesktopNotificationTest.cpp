#include "platform/desktop/DesktopNotification.h"
#include "tests/support/FakeNotifications.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

NotificationContent saying(const QString &summary)
{
    return { summary, u"A body."_s, { { u"install"_s, u"Install"_s }, { u"later"_s, u"Later"_s } } };
}

class DesktopNotificationTest : public testing::Test {
protected:
    ~DesktopNotificationTest() override
    {
        for (const QString &name : { u"own"_s, u"stranger"_s })
            QDBusConnection::disconnectFromBus(name);
    }

    bool show(const QString &summary = u"1.1"_s)
    {
        const qsizetype before = desktop.shown.size();
        notification.show(bus, saying(summary));
        return waitFor([&] { return desktop.shown.size() > before; }) && isAnswered(notification);
    }
    /// Whether the desktop's answer has been taken.
    static bool isAnswered(const DesktopNotification &shown)
    {
        return waitFor([&] { return shown.children().isEmpty(); });
    }
    /// Lets everything arrive that a connection has sent, and all that the bus has for it.
    static bool hasArrived(const QDBusConnection &connection)
    {
        return call(connection, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s, {},
                   u"org.freedesktop.DBus"_s)
                   .type()
            == QDBusMessage::ReplyMessage;
    }

    PrivateBus daemon;
    FakeNotifications desktop{ daemon };
    QDBusConnection bus = daemon.peer(u"own"_s);
    DesktopNotification notification;
    QSignalSpy choices{ &notification, &DesktopNotification::chosen };
    QSignalSpy failures{ &notification, &DesktopNotification::failed };
};

TEST_F(DesktopNotificationTest, saysWhatItIsTold)
{
    ASSERT_TRUE(show(u"A summary"_s));

    const auto shown = desktop.shown.first();
    EXPECT_EQ(shown.program, u"glimmet"_s);
    EXPECT_EQ(shown.icon, u"me.kerno.glimmet"_s);
    EXPECT_EQ(shown.summary, u"A summary"_s);
    EXPECT_EQ(shown.body, u"A body."_s);
    EXPECT_EQ(shown.actions, (QStringList{ u"install"_s, u"Install"_s, u"later"_s, u"Later"_s }));
    EXPECT_EQ(shown.hints.value(u"desktop-entry"_s), u"me.kerno.glimmet"_s);
    EXPECT_EQ(failures.count(), 0);
}

TEST_F(DesktopNotificationTest, tellsWhatWasChosenAndGoes)
{
    ASSERT_TRUE(show());

    desktop.choose(7, u"later"_s);
    desktop.choose(7, u"install"_s);

    ASSERT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7 }; }));
    ASSERT_TRUE(hasArrived(bus));
    EXPECT_EQ(choices, (QList<QVariantList>{ { u"later"_s } }));
}

TEST_F(DesktopNotificationTest, doesNotListenToOtherNotificationsNorToStrangers)
{
    ASSERT_TRUE(show());

    desktop.choose(8, u"install"_s);
    const QDBusConnection stranger = daemon.peer(u"stranger"_s);
    FakeNotifications::choose(stranger, 7, u"install"_s);
    ASSERT_TRUE(hasArrived(stranger));
    ASSERT_TRUE(hasArrived(bus));

    EXPECT_EQ(choices.count(), 0);
}

TEST_F(DesktopNotificationTest, hasNothingToDoWithTheSameNumberAfterARestartOfTheDesktop)
{
    ASSERT_TRUE(show());
    desktop.restart();

    desktop.choose(7, u"install"_s);
    ASSERT_TRUE(hasArrived(desktop.connection()));
    ASSERT_TRUE(hasArrived(bus));
    EXPECT_EQ(choices.count(), 0);

    notification.close();
    ASSERT_TRUE(hasArrived(bus));
    ASSERT_TRUE(hasArrived(desktop.connection()));
    EXPECT_TRUE(desktop.closed.isEmpty());
}

TEST_F(DesktopNotificationTest, goesWithTheProgram)
{
    {
        DesktopNotification other;
        other.show(bus, saying(u"1.1"_s));
        ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 1; }) && isAnswered(other));
    }

    EXPECT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7 }; }));
}

TEST_F(DesktopNotificationTest, doesNotComeIfItIsClosedWhileItsDesktopIsBeingLookedFor)
{
    notification.show(bus, saying(u"1.1"_s));
    notification.close();

    ASSERT_TRUE(isAnswered(notification));
    ASSERT_TRUE(hasArrived(bus));
    EXPECT_TRUE(desktop.shown.isEmpty());
}

TEST_F(DesktopNotificationTest, goesAlsoIfItWasClosedBeforeItsNumberWasKnown)
{
    desktop.isSlow = true;
    notification.show(bus, saying(u"1.1"_s));
    ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 1; }));
    notification.close();
    desktop.answer();

    EXPECT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7 }; }));
}

TEST_F(DesktopNotificationTest, theNextOneStaysWhereOneWasClosedBeforeItsNumberWasKnown)
{
    desktop.isSlow = true;
    notification.show(bus, saying(u"1.1"_s));
    ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 1; }));
    notification.show(bus, saying(u"1.2"_s));
    ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 2; }));
    desktop.answer();
    ASSERT_TRUE(isAnswered(notification));

    desktop.choose(8, u"install"_s);

    EXPECT_TRUE(waitFor([this] { return choices.count() == 1; }));
    EXPECT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7, 8 }; }));
}

TEST(DesktopNotificationWithoutADesktop, tellsThatItWasNotShown)
{
    const PrivateBus daemon;
    DesktopNotification notification;
    QSignalSpy failures(&notification, &DesktopNotification::failed);

    notification.show(daemon.peer(u"own"_s), saying(u"1.1"_s));

    EXPECT_TRUE(waitFor([&] { return failures.count() == 1; }));
    QDBusConnection::disconnectFromBus(u"own"_s);
}

} // namespace
} // namespace glimmet
