#include "platform/bus/SessionBus.h"
#include "platform/bus/SystemBus.h"
#include "platform/updates/UpdaterController.h"
#include "tests/support/FakePackageKit.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"
#include "ui/PanelColors.h"
#include "ui/PanelModule.h"

#include <QPluginLoader>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The window as the program gets it, over a real updater.
class UpdateWindowTest : public testing::Test {
protected:
    void open(ColorScheme scheme = ColorScheme::Light)
    {
        QPluginLoader loader(QStringLiteral(GLIMMET_PANEL_FILE));
        auto *module = qobject_cast<PanelModule *>(loader.instance());
        ASSERT_NE(module, nullptr);
        shown = module->makeUpdateWindow(updater, { scheme });
        shown->window().show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown->window()));
        shown->window().requestActivate();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&shown->window()));
    }
    void press(Qt::Key key) { QTest::keyClick(&shown->window(), key); }
    bool becomes(UpdatePhase phase) const
    {
        return waitFor([&] { return updater.state().phase == phase; });
    }
    QQuickView &view() const { return static_cast<QQuickView &>(shown->window()); }

    PrivateBus daemon;
    FakePackageKit service{ daemon };
    SystemBus systemBus{ qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS") };
    SessionBus sessionBus;
    ManualClock clock;
    ManualTimers timers{ clock };
    UpdaterController updater{ { systemBus, sessionBus, timers, clock, u"/usr/bin/glimmet"_s, 10s } };
    std::unique_ptr<Panel> shown;
};

TEST_F(UpdateWindowTest, hasATitleAndTheSizeOfItsWords)
{
    updater.checkForUpdates();
    open();

    EXPECT_EQ(shown->window().title(), u"glimmet – Software Update"_s);
    EXPECT_FALSE(shown->window().flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(shown->window().width(), 420);
    EXPECT_EQ(shown->window().height(), view().rootObject()->implicitHeight());
}

TEST_F(UpdateWindowTest, growsWithItsWords)
{
    service.changes = u"one more\n"_s.repeated(40);
    updater.checkForUpdates();
    open();
    const int before = shown->window().height();

    ASSERT_TRUE(becomes(UpdatePhase::Found));

    EXPECT_TRUE(waitFor([&] { return shown->window().height() > before + 50; }));
    EXPECT_EQ(shown->window().height(), view().rootObject()->implicitHeight());
}

TEST_F(UpdateWindowTest, leadsFromTheCheckToTheNewVersionByReturnAlone)
{
    updater.checkForUpdates();
    open();
    ASSERT_TRUE(becomes(UpdatePhase::Found));

    press(Qt::Key_Return);

    ASSERT_TRUE(becomes(UpdatePhase::Done));
    int restarts = 0;
    QObject::connect(&updater, &UpdaterController::restartRequested, &view(), [&] { ++restarts; });
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return restarts == 1; }));
}

TEST_F(UpdateWindowTest, escapeGivesTheCheckUp)
{
    service.courses[u"RefreshCache"_s] = { FakePackageKit::Course::Kind::Hangs };
    updater.checkForUpdates();
    open();

    press(Qt::Key_Escape);

    EXPECT_TRUE(becomes(UpdatePhase::Idle));
}

TEST_F(UpdateWindowTest, escapeClosesWhatIsSaid)
{
    service.offered.clear();
    updater.checkForUpdates();
    open();
    ASSERT_TRUE(becomes(UpdatePhase::UpToDate));

    press(Qt::Key_Escape);

    EXPECT_TRUE(waitFor([this] { return !shown->window().isVisible(); }));
}

TEST_F(UpdateWindowTest, hasTheLookOfTheDesktop)
{
    updater.checkForUpdates();
    open(ColorScheme::Dark);
    EXPECT_EQ(view().grabWindow().pixelColor(2, 2).rgba(), panelColors(ColorScheme::Dark).background.rgba());

    shown->setLook({ ColorScheme::Light });

    EXPECT_EQ(view().grabWindow().pixelColor(2, 2).rgba(), panelColors(ColorScheme::Light).background.rgba());
}

TEST_F(UpdateWindowTest, itsEngineGoesWithIt)
{
    updater.checkForUpdates();
    open();
    const QPointer<QQmlEngine> engine = view().engine();
    ASSERT_FALSE(engine.isNull());

    shown.reset();

    EXPECT_TRUE(engine.isNull());
    EXPECT_TRUE(becomes(UpdatePhase::Found));
}

} // namespace
} // namespace glimmet
