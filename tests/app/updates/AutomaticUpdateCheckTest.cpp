#include "tests/app/updates/UpdaterControllerTest.h"

namespace glimmet {
namespace {

using Kind = FakePackageKit::Course::Kind;

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

TEST_F(AutomaticUpdateCheckTest, isTriedAgainInAnHourWhereItFailed)
{
    const auto offered = std::exchange(service->offered, {});
    service->courses[u"RefreshCache"_s] = { Kind::Fails, 48, u"nobody to ask"_s };
    timers.advance(1min);
    ASSERT_TRUE(isAskedFor(u"GetUpdates"_s));
    ASSERT_TRUE(isOver());
    service->offered = offered;
    service->courses.clear();

    timers.advance(1h);

    EXPECT_TRUE(isNotified());
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
