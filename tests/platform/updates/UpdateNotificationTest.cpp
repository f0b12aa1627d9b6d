#include "platform/updates/UpdateNotification.h"
#include "tests/support/FakeNotifications.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

class UpdateNotificationTest : public testing::Test {
protected:
    ~UpdateNotificationTest() override
    {
        for (const QString &name : { u"own"_s, u"stranger"_s })
            QDBusConnection::disconnectFromBus(name);
    }

    bool show(const QString &version = u"1.1"_s)
    {
        const qsizetype before = desktop.shown.size();
        notification.show(bus, u"1.0"_s, version);
        return waitFor([&] { return desktop.shown.size() > before; }) && isAnswered(notification);
    }
    /// Whether the desktop's answer has been taken.
    static bool isAnswered(const UpdateNotification &shown)
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
    UpdateNotification notification;
    QSignalSpy installs{ &notification, &UpdateNotification::installChosen };
};

TEST_F(UpdateNotificationTest, tellsBothVersionsAndOffersInstallAndLater)
{
    ASSERT_TRUE(show());

    const auto shown = desktop.shown.first();
    EXPECT_EQ(shown.program, u"glimmet"_s);
    EXPECT_EQ(shown.icon, u"me.kerno.glimmet"_s);
    EXPECT_EQ(shown.summary, u"Update available"_s);
    EXPECT_EQ(shown.body, u"glimmet 1.1 can be installed. You have 1.0."_s);
    EXPECT_EQ(shown.actions, (QStringList{ u"install"_s, u"Install"_s, u"later"_s, u"Later"_s }));
    EXPECT_EQ(shown.hints.value(u"desktop-entry"_s), u"me.kerno.glimmet"_s);
}

TEST_F(UpdateNotificationTest, tellsOfAVersionOnlyOnce)
{
    ASSERT_TRUE(show());

    notification.show(bus, u"1.0"_s, u"1.1"_s);
    ASSERT_TRUE(hasArrived(bus));
    EXPECT_EQ(desktop.shown.size(), 1);

    EXPECT_TRUE(show(u"1.2"_s));
}

TEST_F(UpdateNotificationTest, tellsThatInstallWasChosen)
{
    ASSERT_TRUE(show());

    desktop.choose(7, u"install"_s);

    EXPECT_TRUE(waitFor([this] { return installs.count() == 1; }));
}

TEST_F(UpdateNotificationTest, laterIsNotInstall)
{
    ASSERT_TRUE(show());

    desktop.choose(7, u"later"_s);
    desktop.choose(7, u"install"_s);

    ASSERT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7 }; }));
    ASSERT_TRUE(hasArrived(bus));
    EXPECT_EQ(installs.count(), 0);
}

TEST_F(UpdateNotificationTest, doesNotListenToOtherNotificationsNorToStrangers)
{
    ASSERT_TRUE(show());

    desktop.choose(8, u"install"_s);
    const QDBusConnection stranger = daemon.peer(u"stranger"_s);
    FakeNotifications::choose(stranger, 7, u"install"_s);
    ASSERT_TRUE(hasArrived(stranger));
    ASSERT_TRUE(hasArrived(bus));

    EXPECT_EQ(installs.count(), 0);
}

TEST_F(UpdateNotificationTest, hasNothingToDoWithTheSameNumberAfterARestartOfTheDesktop)
{
    ASSERT_TRUE(show());
    desktop.restart();

    desktop.choose(7, u"install"_s);
    ASSERT_TRUE(hasArrived(desktop.connection()));
    ASSERT_TRUE(hasArrived(bus));
    EXPECT_EQ(installs.count(), 0);

    notification.close();
    ASSERT_TRUE(hasArrived(bus));
    ASSERT_TRUE(hasArrived(desktop.connection()));
    EXPECT_TRUE(desktop.closed.isEmpty());
}

TEST_F(UpdateNotificationTest, goesWithTheProgram)
{
    {
        UpdateNotification other;
        other.show(bus, u"1.0"_s, u"1.1"_s);
        ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 1; }) && isAnswered(other));
    }

    EXPECT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7 }; }));
}

TEST_F(UpdateNotificationTest, doesNotComeIfItIsClosedWhileItsDesktopIsBeingLookedFor)
{
    notification.show(bus, u"1.0"_s, u"1.1"_s);
    notification.close();

    ASSERT_TRUE(isAnswered(notification));
    ASSERT_TRUE(hasArrived(bus));
    EXPECT_TRUE(desktop.shown.isEmpty());
}

TEST_F(UpdateNotificationTest, goesAlsoIfItWasClosedBeforeItsNumberWasKnown)
{
    desktop.isSlow = true;
    notification.show(bus, u"1.0"_s, u"1.1"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 1; }));
    notification.close();
    desktop.answer();

    EXPECT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7 }; }));
}

TEST_F(UpdateNotificationTest, theNextOneStaysWhereOneWasClosedBeforeItsNumberWasKnown)
{
    desktop.isSlow = true;
    notification.show(bus, u"1.0"_s, u"1.1"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 1; }));
    notification.show(bus, u"1.0"_s, u"1.2"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.shown.size() == 2; }));
    desktop.answer();
    ASSERT_TRUE(isAnswered(notification));

    desktop.choose(8, u"install"_s);

    EXPECT_TRUE(waitFor([this] { return installs.count() == 1; }));
    EXPECT_TRUE(waitFor([this] { return desktop.closed == QList<uint>{ 7, 8 }; }));
}

TEST(UpdateNotificationWithoutADesktop, tellsOfTheVersionOnceThereIsOne)
{
    const PrivateBus daemon;
    UpdateNotification notification;
    const QDBusConnection bus = daemon.peer(QStringLiteral("own"));
    notification.show(bus, QStringLiteral("1.0"), QStringLiteral("1.1"));
    ASSERT_TRUE(waitFor([&] { return notification.children().isEmpty(); }));
    const FakeNotifications desktop(daemon);

    notification.show(bus, QStringLiteral("1.0"), QStringLiteral("1.1"));

    EXPECT_TRUE(waitFor([&] { return desktop.shown.size() == 1; }));
    QDBusConnection::disconnectFromBus(QStringLiteral("own"));
}

TEST(UpdateNotificationWithoutADesktop, isSilent)
{
    const PrivateBus daemon;
    UpdateNotification notification;

    notification.show(daemon.peer(QStringLiteral("own")), QStringLiteral("1.0"), QStringLiteral("1.1"));
    notification.show(QDBusConnection(QString()), QStringLiteral("1.0"), QStringLiteral("1.2"));

    EXPECT_TRUE(waitFor([&] { return notification.children().isEmpty(); }));
    QDBusConnection::disconnectFromBus(QStringLiteral("own"));
}

} // namespace
} // namespace glimmet
