#include "app/updates/UpdateWindowController.h"
#include "app/updates/UpdaterController.h"
#include "platform/bus/SessionBus.h"
#include "platform/bus/SystemBus.h"
#include "tests/support/FakePackageKit.h"
#include "tests/support/ManualTimers.h"

#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using Kind = FakePackageKit::Course::Kind;

class UpdateWindowControllerTest : public testing::Test {
protected:
    static QWindow *window()
    {
        const QWindowList windows = QGuiApplication::topLevelWindows();
        return windows.isEmpty() ? nullptr : windows.first();
    }
    bool becomes(UpdatePhase phase) const
    {
        return waitFor([&] { return updater.state().phase == phase; });
    }
    static bool isGone()
    {
        return waitFor([] { return window() == nullptr; });
    }

    PrivateBus daemon;
    FakePackageKit service{ daemon };
    SystemBus systemBus{ qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS") };
    ManualClock clock;
    ManualTimers timers{ clock };
    SessionBus sessionBus{ timers };
    UpdaterController updater{ { systemBus, sessionBus, timers, clock, u"/usr/bin/glimmet"_s } };
    UpdateWindowController controller{ updater };
};

TEST_F(UpdateWindowControllerTest, hasNoWindowUntilItIsWanted)
{
    EXPECT_FALSE(controller.isOpen());
    EXPECT_EQ(window(), nullptr);

    updater.checkForUpdates();

    EXPECT_TRUE(controller.isOpen());
    ASSERT_NE(window(), nullptr);
    EXPECT_TRUE(window()->isVisible());
}

TEST_F(UpdateWindowControllerTest, hasOneWindowHoweverOftenItIsWanted)
{
    updater.checkForUpdates();
    updater.checkForUpdates();

    EXPECT_EQ(QGuiApplication::topLevelWindows().size(), 1);
}

TEST_F(UpdateWindowControllerTest, destroysTheWindowOfACheckThatIsGivenUp)
{
    service.courses[u"RefreshCache"_s] = { Kind::Hangs };
    updater.checkForUpdates();

    updater.cancel();

    EXPECT_FALSE(controller.isOpen());
    EXPECT_TRUE(isGone());
}

TEST_F(UpdateWindowControllerTest, closingTheWindowGivesTheCheckUp)
{
    service.courses[u"RefreshCache"_s] = { Kind::Hangs };
    updater.checkForUpdates();
    ASSERT_TRUE(waitFor([this] { return service.isAt(u"RefreshCache"_s); }));

    window()->close();

    EXPECT_TRUE(becomes(UpdatePhase::Idle));
    EXPECT_TRUE(isGone());
}

TEST_F(UpdateWindowControllerTest, closingTheWindowLeavesAnInstallationGoingOn)
{
    updater.checkForUpdates();
    ASSERT_TRUE(becomes(UpdatePhase::Found));
    service.courses[u"UpdatePackages"_s] = { Kind::Hangs };
    updater.install();
    ASSERT_TRUE(waitFor([this] { return service.isAt(u"UpdatePackages"_s); }));

    window()->close();
    ASSERT_TRUE(isGone());
    EXPECT_EQ(updater.state().phase, UpdatePhase::Installing);

    service.installed = u"1.1"_s;
    service.finish(1);
    ASSERT_TRUE(becomes(UpdatePhase::Done));
    EXPECT_TRUE(controller.isOpen());
    EXPECT_TRUE(window()->isVisible());
}

TEST_F(UpdateWindowControllerTest, theWindowLeadsFromTheCheckToTheNewVersionByReturnAlone)
{
    updater.checkForUpdates();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    ASSERT_TRUE(becomes(UpdatePhase::Found));

    QTest::keyClick(window(), Qt::Key_Return);

    ASSERT_TRUE(becomes(UpdatePhase::Done));
    QSignalSpy restarts(&updater, &UpdaterController::restartRequested);
    QTest::keyClick(window(), Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return restarts.count() == 1; }));
}

TEST_F(UpdateWindowControllerTest, escapeInTheWindowGivesTheCheckUp)
{
    service.courses[u"RefreshCache"_s] = { Kind::Hangs };
    updater.checkForUpdates();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));

    QTest::keyClick(window(), Qt::Key_Escape);

    EXPECT_TRUE(becomes(UpdatePhase::Idle));
    EXPECT_TRUE(isGone());
}

TEST_F(UpdateWindowControllerTest, opensAgainAfterItWasClosed)
{
    updater.checkForUpdates();
    ASSERT_TRUE(becomes(UpdatePhase::Found));
    window()->close();
    ASSERT_TRUE(becomes(UpdatePhase::Idle));

    updater.checkForUpdates();

    EXPECT_TRUE(controller.isOpen());
    EXPECT_TRUE(becomes(UpdatePhase::Found));
}

} // namespace
} // namespace glimmet
