#include "app/updates/UpdateNotification.h"
#include "platform/bus/SessionBus.h"
#include "tests/support/FakeNotifications.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

class UpdateNotificationTest : public testing::Test {
protected:
    UpdateNotificationTest() { bus.open(); }

    bool show(const FakeNotifications &desktop, const QString &version = u"1.1"_s)
    {
        const qsizetype before = desktop.shown.size();
        notification.show(bus, u"1.0"_s, version);
        return waitFor([&] { return desktop.shown.size() > before; }) && isAnswered();
    }
    /// Whether the desktop's answer has been taken.
    bool isAnswered() const
    {
        const auto *shown = notification.findChild<DesktopNotification *>();
        return shown != nullptr && waitFor([&] { return shown->children().isEmpty(); });
    }
    /// Lets everything arrive that the program has sent, and all that the bus has for it.
    bool hasArrived() const
    {
        return call(bus.connection(), u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s, {},
                   u"org.freedesktop.DBus"_s)
                   .type()
            == QDBusMessage::ReplyMessage;
    }

    PrivateBus daemon;
    ManualTimers timers;
    SessionBus bus{ timers };
    UpdateNotification notification;
    QSignalSpy installs{ &notification, &UpdateNotification::installChosen };
};

TEST_F(UpdateNotificationTest, tellsBothVersionsAndOffersInstallAndLater)
{
    const FakeNotifications desktop(daemon);

    ASSERT_TRUE(show(desktop));

    const auto shown = desktop.shown.first();
    EXPECT_EQ(shown.summary, u"Update available"_s);
    EXPECT_EQ(shown.body, u"glimmet 1.1 can be installed. You have 1.0."_s);
    EXPECT_EQ(shown.actions, (QStringList{ u"install"_s, u"Install"_s, u"later"_s, u"Later"_s }));
}

TEST_F(UpdateNotificationTest, tellsOfAVersionOnlyOnce)
{
    const FakeNotifications desktop(daemon);
    ASSERT_TRUE(show(desktop));

    notification.show(bus, u"1.0"_s, u"1.1"_s);
    ASSERT_TRUE(hasArrived());
    EXPECT_EQ(desktop.shown.size(), 1);

    EXPECT_TRUE(show(desktop, u"1.2"_s));
}

TEST_F(UpdateNotificationTest, tellsThatInstallWasChosen)
{
    const FakeNotifications desktop(daemon);
    ASSERT_TRUE(show(desktop));

    desktop.choose(7, u"install"_s);

    EXPECT_TRUE(waitFor([this] { return installs.count() == 1; }));
}

TEST_F(UpdateNotificationTest, laterIsNotInstall)
{
    const FakeNotifications desktop(daemon);
    ASSERT_TRUE(show(desktop));

    desktop.choose(7, u"later"_s);

    ASSERT_TRUE(waitFor([&] { return desktop.closed == QList<uint>{ 7 }; }));
    ASSERT_TRUE(hasArrived());
    EXPECT_EQ(installs.count(), 0);
}

TEST_F(UpdateNotificationTest, tellsOfTheVersionOnceThereIsADesktopToShowIt)
{
    notification.show(bus, u"1.0"_s, u"1.1"_s);
    ASSERT_TRUE(isAnswered());
    const FakeNotifications desktop(daemon);

    EXPECT_TRUE(show(desktop));
}

TEST(UpdateNotificationWithoutABus, isSilentAndTellsOfTheVersionOnceThereIsOne)
{
    ManualTimers timers;
    SessionBus bus(timers);
    UpdateNotification notification;
    notification.show(bus, u"1.0"_s, u"1.1"_s);
    const PrivateBus daemon;
    const FakeNotifications desktop(daemon);
    bus.open();

    notification.show(bus, u"1.0"_s, u"1.1"_s);

    EXPECT_TRUE(waitFor([&] { return desktop.shown.size() == 1; }));
}

} // namespace
} // namespace glimmet
