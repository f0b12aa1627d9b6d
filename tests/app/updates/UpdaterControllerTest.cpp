#include "tests/app/updates/UpdaterControllerTest.h"

#include "app/updates/UpdateWords.h"

namespace glimmet {
namespace {

using Kind = FakePackageKit::Course::Kind;

/// The words for an error number of which the service says nothing else.
QString wordsForErrorCode(uint code)
{
    return inWords({ TransactionEnd::Failed, code, {} }).words;
}

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
    UpdaterController other({ systemBus, sessionBus, timers, clock, u"/home/me/build/bin/glimmet"_s });

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
        viewModel.checkForUpdates();
        ASSERT_TRUE(hangs(method));

        losePatience();

        EXPECT_EQ(updater.state().failure.words, u"The service that installs updates does not answer."_s)
            << method.toStdString();
    }
}

TEST_F(UpdaterControllerTest, holdsNobodyUpWhereTheBusIsSilent)
{
    systemBus.close();
    daemon.halt();
    viewModel.checkForUpdates();

    losePatience();

    EXPECT_EQ(updater.state().failure.words, u"The service that installs updates does not answer."_s);
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
    check();
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    updater.install();
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    losePatience();

    ASSERT_TRUE(becomes(UpdatePhase::Failed));
    EXPECT_EQ(updater.state().failure.words, u"The service that installs updates does not answer."_s);
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

} // namespace
} // namespace glimmet
