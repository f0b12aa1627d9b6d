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
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = FakePackageKit::Course::Kind;

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

    PrivateBus daemon;
    SystemBus systemBus{ qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS") };
    SessionBus sessionBus;
    ManualClock clock;
    ManualTimers timers{ clock };
    std::unique_ptr<FakePackageKit> service = std::make_unique<FakePackageKit>(daemon);
    FakeNotifications desktop{ daemon };
    UpdaterViewModel viewModel{ { systemBus, sessionBus, timers, clock, u"/usr/bin/glimmet"_s, 500ms } };
    UpdaterController &updater = viewModel.updaterController();
    QSignalSpy windows{ &updater, &UpdaterController::windowWanted };
    QSignalSpy restarts{ &updater, &UpdaterController::restartRequested };
};

TEST_F(UpdaterControllerTest, hasNothingToShowAtFirst)
{
    EXPECT_EQ(updater.state(), UpdateState());
    EXPECT_EQ(service->calls(), QStringList());
}

TEST_F(UpdaterControllerTest, findsAnUpdate)
{
    const UpdateState found = check();

    EXPECT_EQ(found.phase, UpdatePhase::Found);
    EXPECT_EQ(found.installedVersion, u"1.0"_s);
    EXPECT_EQ(found.newVersion, u"1.1"_s);
    EXPECT_EQ(found.changes, u"Faster ✦"_s);
    EXPECT_EQ(windows.count(), 1);
    EXPECT_TRUE(service->hadOneMethodEach());
    EXPECT_EQ(service->calls(),
        (QStringList{ u"SearchFiles"_s, u"RefreshCache"_s, u"GetUpdates"_s, u"GetUpdateDetail"_s }));
}

TEST_F(UpdaterControllerTest, findsAnUpdateOfWhichNobodySaysWhatIsNew)
{
    service->courses[u"GetUpdateDetail"_s] = { Kind::Fails, 3 };

    const UpdateState found = check();

    EXPECT_EQ(found.phase, UpdatePhase::Found);
    EXPECT_EQ(found.changes, QString());
}

TEST_F(UpdaterControllerTest, isUpToDate)
{
    service->offered.clear();

    const UpdateState upToDate = check();

    EXPECT_EQ(upToDate.phase, UpdatePhase::UpToDate);
    EXPECT_EQ(upToDate.installedVersion, u"1.0"_s);
}

TEST_F(UpdaterControllerTest, asksTheUserOnlyWhereTheUserAsked)
{
    check();

    EXPECT_TRUE(service->hintsOf(u"RefreshCache"_s).contains(u"interactive=true"_s));
    EXPECT_TRUE(service->hintsOf(u"SearchFiles"_s).contains(u"interactive=false"_s));
}

TEST_F(UpdaterControllerTest, findsTheUpdateInTheOldListsOfABrokenSource)
{
    service->courses[u"RefreshCache"_s] = { Kind::Fails, 64, u"no Release file"_s };

    EXPECT_EQ(check().phase, UpdatePhase::Found);
}

TEST_F(UpdaterControllerTest, isNeverUpToDateWithABrokenSource)
{
    service->offered.clear();
    service->courses[u"RefreshCache"_s] = { Kind::Fails, 64, u"no Release file"_s };

    const UpdateState failed = check();

    EXPECT_EQ(failed.phase, UpdatePhase::Failed);
    EXPECT_EQ(failed.failure, (UpdateFailure{ wordsForErrorCode(64), u"no Release file"_s }));
}

TEST_F(UpdaterControllerTest, saysThatTheUserMayNotLook)
{
    service->offered.clear();
    service->courses[u"RefreshCache"_s] = { Kind::Fails, 48, u"not authorised"_s };

    EXPECT_EQ(check().failure.words, wordsForErrorCode(48));
}

TEST_F(UpdaterControllerTest, saysThatNoPackageInstalledTheProgram)
{
    UpdaterController other({ systemBus, sessionBus, timers, clock, u"/home/me/build/bin/glimmet"_s, 500ms });

    other.checkForUpdates();

    ASSERT_TRUE(waitFor([&] { return other.state().phase == UpdatePhase::NotPackaged; }));
    EXPECT_FALSE(service->wasCalled(u"RefreshCache"_s));
}

TEST_F(UpdaterControllerTest, saysThatThereIsNoService)
{
    service.reset();

    EXPECT_EQ(check().failure.words.toStdString(),
        "This computer has no service that installs updates (PackageKit).");
}

TEST_F(UpdaterControllerTest, saysThatThereIsNoBus)
{
    daemon.kill();

    EXPECT_EQ(check().failure.words.toStdString(),
        "This computer has no service that installs updates (PackageKit).");
}

TEST_F(UpdaterControllerTest, endsWhereTheServiceDiesAtAnyStepOfACheck)
{
    for (const QString &method :
        { u"CreateTransaction"_s, u"SearchFiles"_s, u"RefreshCache"_s, u"GetUpdates"_s }) {
        service->courses = { { method, { Kind::Dies } } };

        EXPECT_EQ(
            check().failure.words, u"The service that installs updates ended in the middle of its work."_s)
            << method.toStdString();

        service->comeBack();
    }
}

TEST_F(UpdaterControllerTest, endsWhereTheServiceIsSilentAtAnyStepOfACheck)
{
    for (const QString &method :
        { u"CreateTransaction"_s, u"SearchFiles"_s, u"RefreshCache"_s, u"GetUpdates"_s }) {
        service->courses = { { method, { Kind::Hangs } } };

        EXPECT_EQ(check().failure.words, u"The service that installs updates does not answer."_s)
            << method.toStdString();
    }
}

TEST_F(UpdaterControllerTest, holdsNobodyUpWhereTheBusIsSilent)
{
    systemBus.close();
    daemon.halt();

    EXPECT_EQ(check().failure.words, u"The service that installs updates does not answer."_s);

    daemon.goOn();
}

TEST_F(UpdaterControllerTest, givesUpACheckAtOnce)
{
    service->courses[u"RefreshCache"_s] = { Kind::Hangs };
    viewModel.checkForUpdates();
    ASSERT_TRUE(hangs(u"RefreshCache"_s));

    updater.cancel();

    EXPECT_EQ(updater.state(), UpdateState());
    EXPECT_TRUE(isAskedFor(u"Cancel"_s));
    EXPECT_FALSE(service->wasCalled(u"GetUpdates"_s));
}

TEST_F(UpdaterControllerTest, checksAgainAfterOneThatWasGivenUp)
{
    service->courses[u"RefreshCache"_s] = { Kind::Hangs };
    viewModel.checkForUpdates();
    ASSERT_TRUE(hangs(u"RefreshCache"_s));
    updater.cancel();
    service->courses.clear();

    EXPECT_EQ(check().phase, UpdatePhase::Found);
}

TEST_F(UpdaterControllerTest, aSecondCheckOnlyShowsTheFirst)
{
    service->courses[u"RefreshCache"_s] = { Kind::Hangs };
    viewModel.checkForUpdates();
    ASSERT_TRUE(hangs(u"RefreshCache"_s));

    viewModel.checkForUpdates();
    service->finish(1);

    ASSERT_TRUE(becomes(UpdatePhase::Found));
    EXPECT_EQ(service->count(u"SearchFiles"_s), 1);
    EXPECT_EQ(windows.count(), 2);
}

TEST_F(UpdaterControllerTest, whatWasFoundWaitsForAnAnswer)
{
    check();

    viewModel.checkForUpdates();

    EXPECT_EQ(updater.state().phase, UpdatePhase::Found);
    EXPECT_EQ(windows.count(), 2);
    updater.dismiss();
    EXPECT_EQ(updater.state(), UpdateState());
}

TEST_F(UpdaterControllerTest, installsTheUpdate)
{
    const UpdateState done = install();

    EXPECT_EQ(done.phase, UpdatePhase::Done);
    EXPECT_EQ(done.newVersion, u"1.1"_s);
    EXPECT_EQ(service->installed, u"1.1"_s);
    EXPECT_TRUE(service->hintsOf(u"UpdatePackages"_s).contains(u"interactive=true"_s));
    EXPECT_TRUE(service->wasCalled(u"Resolve"_s));
}

TEST_F(UpdaterControllerTest, installsNothingThatWasNotFound)
{
    updater.install();

    EXPECT_EQ(updater.state(), UpdateState());
}

TEST_F(UpdaterControllerTest, doesNotBelieveASuccessWithoutANewVersion)
{
    service->installs = false;

    const UpdateState failed = install();

    EXPECT_EQ(failed.phase, UpdatePhase::Failed);
    EXPECT_TRUE(failed.failure.words.contains(u"is not installed"));
}

TEST_F(UpdaterControllerTest, saysWhyAnInstallationFailed)
{
    // A bad signature, a file that is not the announced one, no permission.
    for (const uint code : { 30U, 40U, 48U }) {
        service->courses[u"UpdatePackages"_s] = { Kind::Fails, code, u"the service's words"_s };

        const UpdateState failed = install();

        EXPECT_EQ(failed.phase, UpdatePhase::Failed);
        EXPECT_EQ(failed.failure, (UpdateFailure{ wordsForErrorCode(code), u"the service's words"_s }));
        updater.dismiss();
    }
}

TEST_F(UpdaterControllerTest, saysThatTheServiceDiedAtTheInstallation)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Dies };

    const UpdateState failed = install();

    EXPECT_EQ(failed.failure.words, u"The service that installs updates ended in the middle of its work."_s);
}

TEST_F(UpdaterControllerTest, seesThatTheWorkWasDoneThoughTheServiceDied)
{
    service->courses[u"UpdatePackages"_s] = { Kind::DiesAfterwards };

    EXPECT_EQ(install().phase, UpdatePhase::Done);
}

TEST_F(UpdaterControllerTest, saysThatTheServiceIsSilentAtTheInstallation)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };

    EXPECT_EQ(install().failure.words, u"The service that installs updates does not answer."_s);
}

TEST_F(UpdaterControllerTest, showsHowFarTheInstallationIs)
{
    check();
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    updater.install();
    EXPECT_EQ(updater.state().percentage, std::nullopt);
    EXPECT_TRUE(updater.state().isCancellable);
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    service->tell({ { u"Percentage"_s, 40U }, { u"AllowCancel"_s, false } });

    EXPECT_TRUE(waitFor([this] { return updater.state().percentage == 40; }));
    EXPECT_FALSE(updater.state().isCancellable);
}

TEST_F(UpdaterControllerTest, offersTheUpdateAgainAfterACancelledInstallation)
{
    check();
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    updater.install();
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    updater.cancel();

    EXPECT_TRUE(becomes(UpdatePhase::Found));
    EXPECT_EQ(service->installed, u"1.0"_s);
}

TEST_F(UpdaterControllerTest, anInstallationThatWasClosedShowsItselfAtItsEnd)
{
    check();
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    updater.install();
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    updater.dismiss();
    EXPECT_EQ(updater.state().phase, UpdatePhase::Installing);
    EXPECT_EQ(windows.count(), 1);

    service->installed = u"1.1"_s;
    service->finish(1);
    ASSERT_TRUE(becomes(UpdatePhase::Done));
    EXPECT_EQ(windows.count(), 2);
}

TEST_F(UpdaterControllerTest, anInstallationThatWasOpenedAgainStaysOpenWhenItIsCancelled)
{
    check();
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    updater.install();
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));
    updater.dismiss();

    viewModel.checkForUpdates();
    updater.cancel();

    ASSERT_TRUE(waitFor([this] { return updater.state().phase != UpdatePhase::Installing; }));
    EXPECT_EQ(updater.state().phase, UpdatePhase::Found);
}

TEST_F(UpdaterControllerTest, restartsOnlyOnceThereIsSomethingNewToRun)
{
    updater.restart();
    EXPECT_EQ(restarts.count(), 0);

    install();
    updater.restart();

    EXPECT_EQ(restarts.count(), 1);
}

/// What happens without the user.
class AutomaticUpdateCheckTest : public UpdaterControllerTest {
protected:
    bool isNotified() const
    {
        return waitFor([this] { return desktop.shown.size() == 1; });
    }
    /// Whether the check leaves the bus, which it does at its end.
    bool isOver() const
    {
        return waitFor([this] { return participants() == m_participantsBefore; });
    }

private:
    qsizetype participants() const
    {
        return call(sessionBus.connection(), u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s,
            u"ListNames"_s, {}, u"org.freedesktop.DBus"_s)
            .arguments()
            .value(0)
            .toStringList()
            .size();
    }

    const qsizetype m_participantsBefore = participants();
};

TEST_F(AutomaticUpdateCheckTest, hasOneNotificationAsItsOnlyResult)
{
    QSignalSpy changes(&updater, &UpdaterController::stateChanged);

    timers.advance(1min);

    ASSERT_TRUE(isNotified());
    EXPECT_EQ(windows.count(), 0);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(desktop.shown.first().body.contains(u"1.1"));
}

TEST_F(AutomaticUpdateCheckTest, neverHasAPasswordAskedFor)
{
    timers.advance(1min);
    ASSERT_TRUE(isNotified());

    for (const QString &method :
        { u"SearchFiles"_s, u"RefreshCache"_s, u"GetUpdates"_s, u"GetUpdateDetail"_s }) {
        EXPECT_TRUE(service->hintsOf(method).contains(u"interactive=false"_s)) << method.toStdString();
        EXPECT_TRUE(service->hintsOf(method).contains(u"background=true"_s)) << method.toStdString();
    }
}

TEST_F(AutomaticUpdateCheckTest, leavesTheFirstMinuteInPeace)
{
    timers.advance(59s);
    EXPECT_EQ(check().phase, UpdatePhase::Found);

    EXPECT_EQ(service->count(u"SearchFiles"_s), 1);
}

TEST_F(AutomaticUpdateCheckTest, tellsOfAVersionOnceInARun)
{
    timers.advance(1min);
    ASSERT_TRUE(isNotified());
    ASSERT_TRUE(isOver());

    timers.advance(24h);
    ASSERT_TRUE(waitFor([this] { return service->count(u"GetUpdateDetail"_s) == 2; }));
    ASSERT_TRUE(isOver());

    EXPECT_EQ(desktop.shown.size(), 1);
}

TEST_F(AutomaticUpdateCheckTest, isSilentWhereItFails)
{
    service->offered.clear();
    service->courses[u"RefreshCache"_s] = { Kind::Fails, 48, u"nobody to ask"_s };

    timers.advance(1min);
    ASSERT_TRUE(isAskedFor(u"GetUpdates"_s));
    ASSERT_TRUE(isOver());

    EXPECT_EQ(windows.count(), 0);
    EXPECT_TRUE(desktop.shown.isEmpty());
}

TEST_F(AutomaticUpdateCheckTest, isSilentWithoutAService)
{
    service.reset();

    timers.advance(1min);
    EXPECT_EQ(check().phase, UpdatePhase::Failed);

    EXPECT_TRUE(desktop.shown.isEmpty());
}

TEST_F(AutomaticUpdateCheckTest, installsFromTheNotification)
{
    timers.advance(1min);
    ASSERT_TRUE(isNotified());
    ASSERT_TRUE(isOver());
    // The number of the notification comes after what ends the check; a click is never that fast.
    ASSERT_TRUE(waitFor([this] {
        desktop.choose(7, u"install"_s);
        return updater.state().phase != UpdatePhase::Idle;
    }));

    ASSERT_TRUE(becomes(UpdatePhase::Done));
    EXPECT_EQ(windows.count(), 1);
    EXPECT_EQ(service->installed, u"1.1"_s);
}

TEST_F(AutomaticUpdateCheckTest, givesWayToTheUsers)
{
    service->courses[u"RefreshCache"_s] = { Kind::Hangs };
    timers.advance(1min);
    ASSERT_TRUE(hangs(u"RefreshCache"_s));
    service->courses.clear();

    EXPECT_EQ(check().phase, UpdatePhase::Found);

    EXPECT_TRUE(service->wasCalled(u"Cancel"_s));
    EXPECT_TRUE(service->hintsOf(u"RefreshCache"_s).contains(u"interactive=true"_s));
    EXPECT_TRUE(desktop.shown.isEmpty());
}

TEST_F(AutomaticUpdateCheckTest, doesNotDisturbTheUsers)
{
    service->courses[u"RefreshCache"_s] = { Kind::Hangs };
    viewModel.checkForUpdates();
    ASSERT_TRUE(hangs(u"RefreshCache"_s));

    timers.advance(1min);
    service->finish(1);

    ASSERT_TRUE(becomes(UpdatePhase::Found));
    EXPECT_EQ(service->count(u"SearchFiles"_s), 1);
}

TEST_F(AutomaticUpdateCheckTest, leavesTheBusAfterwards)
{
    timers.advance(1min);
    ASSERT_TRUE(isNotified());

    EXPECT_TRUE(isOver());
}

} // namespace
} // namespace glimmet
