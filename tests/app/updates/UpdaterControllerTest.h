#pragma once

#include "app/updates/UpdaterViewModel.h"
#include "platform/bus/SessionBus.h"
#include "platform/bus/SystemBus.h"
#include "tests/support/FakeNotifications.h"
#include "tests/support/FakePackageKit.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <memory>

namespace glimmet {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// An updater over a package manager and a desktop of the test's own, and what it asked the program for.
class UpdaterControllerTest : public testing::Test {
protected:
    UpdaterControllerTest() { sessionBus.open(); }

    bool becomes(UpdatePhase phase) const
    {
        return waitFor([&] { return updater.state().phase == phase; });
    }
    /// A check of the user's, to its end.
    UpdateState check()
    {
        viewModel.checkForUpdates();
        EXPECT_EQ(updater.state().phase, UpdatePhase::Checking);
        EXPECT_TRUE(waitFor([this] { return updater.state().phase != UpdatePhase::Checking; }));
        return updater.state();
    }
    /// The same, and an installation to its end.
    UpdateState install()
    {
        EXPECT_EQ(check().phase, UpdatePhase::Found);
        updater.install();
        EXPECT_EQ(updater.state().phase, UpdatePhase::Installing);
        EXPECT_TRUE(waitFor([this] { return updater.state().phase != UpdatePhase::Installing; }));
        return updater.state();
    }
    bool isAskedFor(const QString &method) const
    {
        return waitFor([&] { return service->wasCalled(method); });
    }

    bool hangs(const QString &method) const
    {
        return waitFor([&] { return service->isAt(method); });
    }
    /// Lets so much time pass that the updater waits no more for what it has heard nothing of.
    void losePatience() { timers.advance(5min); }

    PrivateBus daemon;
    SystemBus systemBus{ qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS") };
    ManualClock clock;
    ManualTimers timers{ clock };
    SessionBus sessionBus{ timers };
    std::unique_ptr<FakePackageKit> service = std::make_unique<FakePackageKit>(daemon);
    FakeNotifications desktop{ daemon };
    UpdaterViewModel viewModel{ { systemBus, sessionBus, timers, clock, u"/usr/bin/glimmet"_s } };
    UpdaterController &updater = viewModel.updaterController();
    QSignalSpy windows{ &updater, &UpdaterController::windowWanted };
    QSignalSpy restarts{ &updater, &UpdaterController::restartRequested };
};

} // namespace glimmet
