#include "app/TopBarHost.h"
#include "platform/ProgramName.h"
#include "platform/bus/SessionBus.h"
#include "platform/desktop/TopBarObject.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"
#include "tests/support/PrivateBus.h"

#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString shellName = u"org.gnome.Shell"_s;
const QString extensionName = u"me.kerno.glimmet.TopBar"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

/// What a participant of the bus hears of the text and of the panel.
class HeardProperties final : public QObject {
    Q_OBJECT

public:
    explicit HeardProperties(QDBusConnection listener)
    {
        listener.connect(programName, TopBarObject::path, propertiesInterface, u"PropertiesChanged"_s, this,
            SLOT(hear(QString, QVariantMap)));
    }

    QVariantMap last;
    int count = 0;

private slots:
    void hear(const QString &interface, const QVariantMap &changed)
    {
        EXPECT_EQ(interface, TopBarObject::interface);
        last = changed;
        ++count;
    }
};

/// A shell on the bus, without the extension at first; GNOME's unless another name is told.
class TopBarHostTest : public testing::Test {
protected:
    explicit TopBarHostTest(const QString &name = shellName)
        : shell(daemon.peer(u"shell"_s))
    {
        shell.registerService(name);
        bus.open();
        bus.claim(programName);
    }
    ~TopBarHostTest() override { QDBusConnection::disconnectFromBus(u"shell"_s); }

    /// The extension is enabled in the shell.
    void enable(TopBarHost &host)
    {
        shell.registerService(extensionName);
        ASSERT_TRUE(waitFor([&] { return host.isAvailable(); }));
    }
    static QDBusMessage callBy(
        const QDBusConnection &caller, const QString &method, const QVariantList &arguments = {})
    {
        return call(caller, TopBarObject::path, TopBarObject::interface, method, arguments);
    }
    /// The shell's call, which may stay without an answer for long.
    QDBusPendingCall awaitChange(const QString &knownText, bool knownOpen)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            programName, TopBarObject::path, TopBarObject::interface, u"AwaitChange"_s);
        message << knownText << knownOpen;
        return shell.asyncCall(message);
    }
    QVariant property(const QString &name)
    {
        const QDBusMessage reply =
            call(shell, TopBarObject::path, propertiesInterface, u"Get"_s, { TopBarObject::interface, name });
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }

    PrivateBus daemon;
    QDBusConnection shell;
    ManualClock clock;
    ManualTimers timers{ clock };
    SessionBus bus{ timers };
};

TEST_F(TopBarHostTest, isThereWhileTheShellHasTheExtension)
{
    TopBarHost host(bus, timers);
    QSignalSpy changes(&host, &TopBarHost::availabilityChanged);
    EXPECT_FALSE(host.isAvailable());

    enable(host);
    shell.unregisterService(extensionName);

    EXPECT_TRUE(waitFor([&] { return !host.isAvailable(); }));
    EXPECT_EQ(changes.count(), 2);
}

class TopBarHostOnPlasma : public TopBarHostTest {
protected:
    TopBarHostOnPlasma()
        : TopBarHostTest(u"org.kde.plasmashell"_s)
    {
    }
};

TEST_F(TopBarHostOnPlasma, believesPlasmasShellAndNobodyElse)
{
    const QDBusConnection stranger = daemon.peer(u"stranger"_s);
    TopBarHost host(bus, timers);
    enable(host);
    QSignalSpy clicked(&host, &TopBarHost::clicked);

    const QVariantList upperEdge{ 1000, 760, 80, 0, 1280, 800 };
    EXPECT_EQ(
        callBy(stranger, u"Toggle"_s, upperEdge).errorName(), u"org.freedesktop.DBus.Error.AccessDenied"_s);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_EQ(callBy(shell, u"Toggle"_s, upperEdge).type(), QDBusMessage::ReplyMessage);

    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(host.anchor(), QPoint(1040, 760));
    QDBusConnection::disconnectFromBus(u"stranger"_s);
}

TEST_F(TopBarHostTest, believesNobodyByPlasmasNameWhereGnomesShellIs)
{
    QDBusConnection stranger = daemon.peer(u"stranger"_s);
    stranger.registerService(u"org.kde.plasmashell"_s);
    TopBarHost host(bus, timers);

    EXPECT_EQ(callBy(stranger, u"Toggle"_s, { 1000, 760, 80, 0, 1280, 800 }).errorName(),
        u"org.freedesktop.DBus.Error.AccessDenied"_s);
    QDBusConnection::disconnectFromBus(u"stranger"_s);
}

TEST_F(TopBarHostTest, isThereAtOnceWhereTheExtensionCameFirst)
{
    shell.registerService(extensionName);

    const TopBarHost host(bus, timers);

    EXPECT_TRUE(host.isAvailable());
}

TEST_F(TopBarHostTest, takesNobodyButTheShellForTheExtension)
{
    QDBusConnection stranger = daemon.peer(u"stranger"_s);
    const TopBarHost host(bus, timers);
    stranger.registerService(extensionName);

    settle(shell);

    EXPECT_FALSE(host.isAvailable());
    QDBusConnection::disconnectFromBus(u"stranger"_s);
}

TEST_F(TopBarHostTest, goesWithAShellThatCrashes)
{
    QDBusConnection another = daemon.peer(u"another shell"_s);
    shell.unregisterService(shellName);
    another.registerService(shellName);
    another.registerService(extensionName);
    const TopBarHost host(bus, timers);
    ASSERT_TRUE(host.isAvailable());

    another = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(u"another shell"_s);

    EXPECT_TRUE(waitFor([&] { return !host.isAvailable(); }));
}

TEST_F(TopBarHostTest, isGoneWithTheBusAndBackWithIt)
{
    TopBarHost host(bus, timers);
    enable(host);

    daemon.kill();
    ASSERT_TRUE(waitFor([&] { return !host.isAvailable(); }));
    daemon.start();
    QDBusConnection another = daemon.peer(u"another shell"_s);
    another.registerService(shellName);
    another.registerService(extensionName);
    timers.advance(std::chrono::seconds(2));

    EXPECT_TRUE(waitFor([&] { return host.isAvailable(); }));
    QDBusConnection::disconnectFromBus(u"another shell"_s);
}

TEST_F(TopBarHostTest, hasTheTextAndWhetherThePanelIsOpenAsProperties)
{
    TopBarHost host(bus, timers);
    host.setText(u"12:00:00"_s);
    host.setPanelOpen(true);

    EXPECT_EQ(property(u"Text"_s), u"12:00:00"_s);
    EXPECT_EQ(property(u"PanelOpen"_s), true);
}

TEST_F(TopBarHostTest, tellsTheShellOfEachChangeOnce)
{
    const HeardProperties heard(shell);
    TopBarHost host(bus, timers);
    enable(host);

    host.setText(u"a"_s);
    host.setText(u"a"_s);
    ASSERT_TRUE(waitFor([&] { return heard.count == 1; }));
    EXPECT_EQ(heard.last, (QVariantMap{ { u"Text"_s, u"a"_s } }));
    host.setPanelOpen(true);
    host.setPanelOpen(true);
    settle(shell);

    EXPECT_EQ(heard.count, 2);
    EXPECT_EQ(heard.last, (QVariantMap{ { u"PanelOpen"_s, true } }));
}

TEST_F(TopBarHostTest, keepsStillWhereNobodyShowsTheText)
{
    const HeardProperties heard(shell);
    TopBarHost host(bus, timers);

    host.setText(u"a"_s);
    host.setPanelOpen(true);
    settle(shell);

    EXPECT_EQ(heard.count, 0);
}

TEST_F(TopBarHostTest, answersAtOnceWhereTheShellKnowsSomethingElse)
{
    TopBarHost host(bus, timers);
    host.setText(u"a"_s);
    host.setPanelOpen(true);

    for (const QVariantList &known : { QVariantList{ QString(), true }, { u"a"_s, false } })
        EXPECT_EQ(callBy(shell, u"AwaitChange"_s, known).arguments(), (QVariantList{ u"a"_s, true }));
}

TEST_F(TopBarHostTest, answersWhoAwaitsAChangeWithTheNextOne)
{
    TopBarHost host(bus, timers);
    host.setText(u"a"_s);
    const QDBusPendingCall first = awaitChange(u"a"_s, false);
    const QDBusPendingCall second = awaitChange(u"a"_s, false);
    settle(shell);
    EXPECT_FALSE(first.isFinished());

    host.setText(u"b"_s);
    ASSERT_TRUE(waitFor([&] { return first.isFinished() && second.isFinished(); }));
    EXPECT_EQ(first.reply().arguments(), (QVariantList{ u"b"_s, false }));
    EXPECT_EQ(second.reply().arguments(), (QVariantList{ u"b"_s, false }));

    const QDBusPendingCall third = awaitChange(u"b"_s, false);
    settle(shell);
    host.setPanelOpen(true);
    ASSERT_TRUE(waitFor([&] { return third.isFinished(); }));
    EXPECT_EQ(third.reply().arguments(), (QVariantList{ u"b"_s, true }));
}

TEST_F(TopBarHostTest, answersWhoAwaitsAChangeBeforeThatIsTakenForLost)
{
    TopBarHost host(bus, timers);
    const QDBusPendingCall pending = awaitChange({}, false);
    settle(shell);
    timers.advance(std::chrono::seconds(19));
    settle(shell);
    EXPECT_FALSE(pending.isFinished());

    timers.advance(std::chrono::seconds(1));

    ASSERT_TRUE(waitFor([&] { return pending.isFinished(); }));
    EXPECT_EQ(pending.reply().arguments(), (QVariantList{ QString(), false }));
}

TEST_F(TopBarHostTest, isClickedByTheShellAtTheButtonsLowerEdge)
{
    TopBarHost host(bus, timers);
    enable(host);
    QSignalSpy clicked(&host, &TopBarHost::clicked);

    const QDBusMessage answer = callBy(shell, u"Toggle"_s, { 1000, 0, 80, 27, 1280, 800 });

    EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(host.anchor(), QPoint(1040, 27));
}

TEST_F(TopBarHostTest, knowsThePlaceBeforeAnyClick)
{
    TopBarHost host(bus, timers);
    enable(host);
    EXPECT_EQ(host.anchor(), std::nullopt);
    QSignalSpy clicked(&host, &TopBarHost::clicked);

    callBy(shell, u"Place"_s, { 600, 800, 100, 30, 1280, 1600 });
    EXPECT_EQ(host.anchor(), QPoint(650, 830));
    EXPECT_EQ(clicked.count(), 0);

    shell.unregisterService(extensionName);
    ASSERT_TRUE(waitFor([&] { return !host.isAvailable(); }));
    EXPECT_EQ(host.anchor(), std::nullopt);
}

TEST_F(TopBarHostTest, handsOnAPressElsewhere)
{
    TopBarHost host(bus, timers);
    enable(host);
    QSignalSpy presses(&host, &TopBarHost::pressedElsewhere);

    callBy(shell, u"PressElsewhere"_s);

    EXPECT_EQ(presses.count(), 1);
}

TEST_F(TopBarHostTest, refusesEveryCallOfAnybodyElse)
{
    const QDBusConnection stranger = daemon.peer(u"stranger"_s);
    TopBarHost host(bus, timers);
    enable(host);
    QSignalSpy clicked(&host, &TopBarHost::clicked);
    QSignalSpy presses(&host, &TopBarHost::pressedElsewhere);

    const QVariantList place{ 1000, 0, 80, 27, 1280, 800 };
    for (const QDBusMessage &answer :
        { callBy(stranger, u"Toggle"_s, place), callBy(stranger, u"Place"_s, place),
            callBy(stranger, u"PressElsewhere"_s), callBy(stranger, u"AwaitChange"_s, { QString(), false }) })
        EXPECT_EQ(answer.errorName(), u"org.freedesktop.DBus.Error.AccessDenied"_s);

    EXPECT_EQ(clicked.count() + presses.count(), 0);
    EXPECT_EQ(host.anchor(), std::nullopt);
    QDBusConnection::disconnectFromBus(u"stranger"_s);
}

TEST_F(TopBarHostTest, refusesAShellOfBefore)
{
    QDBusConnection another = daemon.peer(u"another shell"_s);
    TopBarHost host(bus, timers);
    enable(host);
    shell.unregisterService(shellName);
    another.registerService(shellName);

    EXPECT_EQ(callBy(shell, u"PressElsewhere"_s).errorName(), u"org.freedesktop.DBus.Error.AccessDenied"_s);
    EXPECT_EQ(callBy(another, u"PressElsewhere"_s).type(), QDBusMessage::ReplyMessage);
    QDBusConnection::disconnectFromBus(u"another shell"_s);
}

TEST_F(TopBarHostTest, knowsNoOtherCallsAndNoOtherArguments)
{
    TopBarHost host(bus, timers);
    enable(host);
    QSignalSpy clicked(&host, &TopBarHost::clicked);

    for (const QDBusMessage &answer : { callBy(shell, u"Quit"_s), callBy(shell, u"Toggle"_s),
             callBy(shell, u"Toggle"_s, { u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s }) })
        EXPECT_EQ(answer.errorName(), u"org.freedesktop.DBus.Error.UnknownMethod"_s);

    EXPECT_EQ(clicked.count(), 0);
}

TEST(NativeAnchor, isTheMiddleOfTheButtonsLowerEdge)
{
    EXPECT_EQ(nativeAnchor({ 1100, 2, 80, 24 }, { 1280, 800 }, { 1280, 800 }), QPoint(1140, 26));
}

TEST(NativeAnchor, countsTheRootWindowsPixelsWhereTheShellsAreLarger)
{
    EXPECT_EQ(nativeAnchor({ 1100, 0, 80, 27 }, { 1280, 800 }, { 2560, 1600 }), QPoint(2280, 54));
    EXPECT_EQ(nativeAnchor({ 150, 10, 30, 20 }, { 1500, 1000 }, { 2000, 1333 }), QPoint(220, 40));
}

TEST(NativeAnchor, takesCoordinatesForPixelsWhereASizeIsNotKnown)
{
    EXPECT_EQ(nativeAnchor({ 10, 0, 20, 30 }, {}, { 1280, 800 }), QPoint(20, 30));
    EXPECT_EQ(nativeAnchor({ 10, 0, 20, 30 }, { 1280, 800 }, {}), QPoint(20, 30));
}

} // namespace
} // namespace glimmet

#include "TopBarHostTest.moc"
