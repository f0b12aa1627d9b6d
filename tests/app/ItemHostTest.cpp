#include "app/ItemHost.h"
#include "app/FeedHost.h"
#include "platform/ProgramName.h"
#include "platform/bus/SessionBus.h"
#include "platform/desktop/StatusNotifierTypes.h"
#include "tests/support/HeardSignals.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

/// A desktop's watcher, on a connection of its own, with or without a host behind it.
class Watcher final : public QDBusVirtualObject {
public:
    explicit Watcher(QDBusConnection connection, bool hasHost = true)
        : m_connection(std::move(connection))
        , m_hasHost(hasHost)
    {
        m_connection.registerVirtualObject(QStringLiteral("/StatusNotifierWatcher"), this);
        m_connection.registerService(QStringLiteral("org.kde.StatusNotifierWatcher"));
    }
    ~Watcher() override
    {
        m_connection.unregisterService(QStringLiteral("org.kde.StatusNotifierWatcher"));
        m_connection.unregisterObject(QStringLiteral("/StatusNotifierWatcher"));
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        if (message.member() == u"RegisterStatusNotifierItem") {
            registered.append(message.arguments().value(0).toString());
            return connection.send(message.createReply());
        }
        return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(m_hasHost))));
    }
    void setHasHost(bool hasHost)
    {
        m_hasHost = hasHost;
        m_connection.send(QDBusMessage::createSignal(QStringLiteral("/StatusNotifierWatcher"),
            QStringLiteral("org.kde.StatusNotifierWatcher"),
            hasHost ? QStringLiteral("StatusNotifierHostRegistered")
                    : QStringLiteral("StatusNotifierHostUnregistered")));
    }
    void look() const
    {
        call(m_connection, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"),
            { QStringLiteral("org.kde.StatusNotifierItem") }, registered.last());
    }

    QStringList registered;

private:
    QDBusConnection m_connection;
    bool m_hasHost;
};

class ItemHostTest : public testing::Test {
protected:
    ItemHostTest()
        : desktop(daemon.peer(QStringLiteral("desktop")))
    {
        bus.open();
        bus.claim(programName);
    }
    ~ItemHostTest() override { QDBusConnection::disconnectFromBus(QStringLiteral("desktop")); }

    PrivateBus daemon;
    QDBusConnection desktop;
    ManualClock clock;
    ManualTimers timers{ clock };
    SessionBus bus{ timers };
};

TEST_F(ItemHostTest, isNotAvailableWhereNobodyShowsItems)
{
    const ItemHost host(bus, timers, clock);

    EXPECT_FALSE(host.isAvailable());
}

TEST_F(ItemHostTest, tellsItsTextToOtherProgramsWhereNoDesktopShowsItems)
{
    ItemHost host(bus, timers, clock);
    const HeardSignals heard(desktop, programName, QStringLiteral("/StatusNotifierItem"), itemInterface,
        { QStringLiteral("XAyatanaNewLabel") });
    settle(desktop);
    host.setShown(false);

    host.setText(QStringLiteral("12:00"));

    EXPECT_TRUE(waitFor([&] { return heard.all == QStringList(QStringLiteral("XAyatanaNewLabel:12:00")); }));
}

TEST_F(ItemHostTest, registersWithTheWatcherThatIsThere)
{
    const Watcher watcher(desktop);

    const ItemHost host(bus, timers, clock);

    EXPECT_TRUE(waitFor([&] { return host.isAvailable(); }));
    EXPECT_EQ(watcher.registered, QStringList(programName));
}

TEST_F(ItemHostTest, registersAgainAfterARestartOfTheWatcher)
{
    const ItemHost host(bus, timers, clock);
    for (int round = 0; round < 3; ++round) {
        {
            const Watcher watcher(desktop);
            ASSERT_TRUE(waitFor([&] { return host.isAvailable() && watcher.registered.size() == 1; }))
                << round;
        }
        ASSERT_TRUE(waitFor([&] { return !host.isAvailable(); })) << round;
    }
}

TEST_F(ItemHostTest, isAvailableOnlyWhileTheWatcherHasAHost)
{
    Watcher watcher(desktop, false);
    const ItemHost host(bus, timers, clock);
    ASSERT_TRUE(waitFor([&] { return watcher.registered.size() == 1; }));
    EXPECT_FALSE(host.isAvailable());

    watcher.setHasHost(true);
    EXPECT_TRUE(waitFor([&] { return host.isAvailable(); }));

    watcher.setHasHost(false);
    EXPECT_TRUE(waitFor([&] { return !host.isAvailable(); }));
}

TEST_F(ItemHostTest, registersUnderANewNameWhereTheHostNeverLooksAtIt)
{
    const Watcher watcher(desktop);
    const ItemHost host(bus, timers, clock);

    ASSERT_TRUE(waitFor([&] { return host.isAvailable() && watcher.registered.size() == 1; }));

    timers.advance(3s);
    ASSERT_TRUE(waitFor([&] { return watcher.registered.size() == 2; }));
    EXPECT_NE(watcher.registered.at(1), programName);

    watcher.look();
    EXPECT_TRUE(waitFor([&] { return host.isAvailable(); }));
    EXPECT_TRUE(timers.running().empty());
}

TEST_F(ItemHostTest, registersWithAWatcherThatReplacesTheRunningOneWithoutAGap)
{
    QDBusConnection next = daemon.peer(QStringLiteral("next"));
    const Watcher watcher(desktop);
    const ItemHost host(bus, timers, clock);
    ASSERT_TRUE(waitFor([&] { return watcher.registered.size() == 1; }));
    const Watcher replacement(next);
    // The queued name passes over at once when its first owner lets go of it.
    next.interface()->registerService(QStringLiteral("org.kde.StatusNotifierWatcher"),
        QDBusConnectionInterface::QueueService, QDBusConnectionInterface::DontAllowReplacement);

    desktop.unregisterService(QStringLiteral("org.kde.StatusNotifierWatcher"));

    EXPECT_TRUE(waitFor([&] { return replacement.registered.size() == 1; }));
    QDBusConnection::disconnectFromBus(QStringLiteral("next"));
}

TEST_F(ItemHostTest, makesRoomForTheStripWhereTheHostNeverShowsIt)
{
    const Watcher watcher(desktop);
    const ItemHost host(bus, timers, clock);
    ASSERT_TRUE(waitFor([&] { return host.isAvailable(); }));
    int changes = 0;
    QObject::connect(&host, &MenuBarHost::availabilityChanged, &host, [&changes] { ++changes; });

    timers.advance(3s);
    EXPECT_FALSE(host.isAvailable());
    // Each time it asks anew whether there is a host before it waits for that to look.
    ASSERT_TRUE(waitFor([&] {
        timers.advance(3s);
        return watcher.registered.size() == 4 && timers.running().empty();
    }));

    EXPECT_FALSE(host.isAvailable());
    EXPECT_EQ(changes, 1) << "the strip would wait anew";
    watcher.look();
    EXPECT_TRUE(waitFor([&] { return host.isAvailable(); })) << "the host came late";
}

TEST_F(ItemHostTest, isGoneWithTheBusAndBackWithIt)
{
    auto watcher = std::make_unique<Watcher>(desktop);
    const ItemHost host(bus, timers, clock);
    ASSERT_TRUE(waitFor([&] { return host.isAvailable(); }));

    const QSignalSpy losses(&bus, &SessionBus::lost);
    watcher.reset();
    daemon.kill();
    ASSERT_TRUE(waitFor([&] { return losses.count() == 1; }));
    EXPECT_FALSE(host.isAvailable());
    daemon.start();
    const Watcher another(daemon.peer(QStringLiteral("another")));
    timers.advance(2s);

    EXPECT_TRUE(waitFor([&] { return host.isAvailable() && another.registered.size() == 1; }));
    QDBusConnection::disconnectFromBus(QStringLiteral("another"));
}

/// A panel that shows a picture and, over it, a tooltip.
class IconPanelTest : public ItemHostTest {
protected:
    IconPanelTest()
        : watcher(desktop)
        , host(bus, timers, clock)
    {
        waitFor([this] { return host.isAvailable(); });
        watcher.look();
        host.setText(QStringLiteral("11:59:59"));
        timers.advance(10s);
        toolTip();
        heard.all.clear();
    }

    template <typename Value> Value property(const QString &name)
    {
        const QDBusMessage reply = call(desktop, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
            { itemInterface, name });
        return qdbus_cast<Value>(reply.arguments().value(0).value<QDBusVariant>().variant());
    }
    QString toolTip() { return property<NotifierToolTip>(QStringLiteral("ToolTip")).title; }
    int toolTips()
    {
        toolTip(); // Its answer comes behind all that was told before.
        return int(heard.all.count(QStringLiteral("NewToolTip:")));
    }

    Watcher watcher;
    ItemHost host;
    HeardSignals heard{ desktop, programName, QStringLiteral("/StatusNotifierItem"), itemInterface,
        { QStringLiteral("NewToolTip"), QStringLiteral("NewIcon") } };
};

TEST_F(IconPanelTest, tellsOfItsToolTipEveryTenSecondsAtMost)
{
    for (int second = 0; second < 30; ++second) {
        host.setText(QStringLiteral("12:00:%1").arg(second, 2, 10, QLatin1Char('0')));
        timers.advance(1s);
    }

    EXPECT_EQ(toolTips(), 4);
    EXPECT_EQ(toolTip(), QStringLiteral("12:00:29"));
}

TEST_F(IconPanelTest, restsWhileItsTextStays)
{
    host.setText(QStringLiteral("deep work"));
    timers.advance(10s);

    EXPECT_EQ(toolTips(), 1);
    EXPECT_TRUE(timers.running().empty());
}

TEST_F(IconPanelTest, tellsOfTheTextOfAnotherModeAtOnce)
{
    host.setText(QStringLiteral("12:00:00"));
    host.setMode(TickerMode::Quote);
    host.setText(QStringLiteral("Make it work"));

    EXPECT_EQ(toolTips(), 2);
    EXPECT_TRUE(heard.all.contains(QStringLiteral("NewIcon:")));
}

TEST_F(IconPanelTest, tellsOfATextThatStaysOverAChangeOfMode)
{
    host.setText(QStringLiteral("one"));
    host.setText(QStringLiteral("two"));
    EXPECT_EQ(toolTips(), 1);

    host.setMode(TickerMode::Custom);
    host.setText(QStringLiteral("two"));

    EXPECT_EQ(toolTips(), 2);
    EXPECT_EQ(toolTip(), QStringLiteral("two"));
}

TEST_F(IconPanelTest, hasItsToolTipBackByAClickWhereAHostNeverTellsThatItsMenuIsClosed)
{
    call(desktop, QStringLiteral("/StatusNotifierItem/Menu"), QStringLiteral("com.canonical.dbusmenu"),
        QStringLiteral("Event"), { 0, QStringLiteral("opened"), QVariant::fromValue(QDBusVariant(0)), 0U });
    ASSERT_EQ(toolTip(), QString());

    call(desktop, QStringLiteral("/StatusNotifierItem"), itemInterface, QStringLiteral("Activate"), { 1, 2 });

    EXPECT_EQ(toolTip(), QStringLiteral("11:59:59"));
}

TEST_F(IconPanelTest, hidesItsToolTipUnderTheOpenPanel)
{
    host.setPanelOpen(true);
    EXPECT_EQ(toolTips(), 1);
    EXPECT_EQ(toolTip(), QString());
    host.setText(QStringLiteral("12:00:00"));
    EXPECT_EQ(toolTip(), QString());

    host.setPanelOpen(false);

    EXPECT_EQ(toolTips(), 2);
    EXPECT_EQ(toolTip(), QStringLiteral("12:00:00"));
}

TEST_F(IconPanelTest, showsTheModesSymbolInEverySizeThatPanelsAskFor)
{
    const auto sizes = [this] {
        QList<int> all;
        for (const NotifierPixmap &picture : property<QList<NotifierPixmap>>(QStringLiteral("IconPixmap")))
            all.append(picture.width);
        return all;
    };
    const auto first = [this] {
        return property<QList<NotifierPixmap>>(QStringLiteral("IconPixmap")).constFirst().bytes;
    };
    EXPECT_EQ(sizes(), QList({ 22, 44, 64 }));

    const QByteArray clockPicture = first();
    host.setMode(TickerMode::Crypto);
    const QByteArray cryptoPicture = first();
    host.setColorScheme(ColorScheme::Dark);

    EXPECT_NE(cryptoPicture, clockPicture);
    EXPECT_NE(first(), cryptoPicture);
}

TEST_F(IconPanelTest, isClickedByAFeedThatKnowsNoPlace)
{
    QSignalSpy clicked(&host, &ItemHost::clicked);

    call(desktop, QStringLiteral("/StatusNotifierItem"), itemInterface, QStringLiteral("SecondaryActivate"),
        { -1, -1 });

    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(host.anchor(), std::nullopt);
}

TEST_F(IconPanelTest, leavesTheMenuToTheOtherButton)
{
    QSignalSpy clicked(&host, &ItemHost::clicked);
    QSignalSpy openChosen(&host, &ItemHost::openChosen);
    const auto tellOfMenu = [this](int entry, const QString &event) {
        call(desktop, QStringLiteral("/StatusNotifierItem/Menu"), QStringLiteral("com.canonical.dbusmenu"),
            QStringLiteral("Event"), { entry, event, QVariant::fromValue(QDBusVariant(0)), 0U });
    };

    tellOfMenu(0, QStringLiteral("opened"));
    EXPECT_EQ(property<QString>(QStringLiteral("Status")), QStringLiteral("Active"));
    EXPECT_EQ(toolTip(), QString());
    tellOfMenu(1, QStringLiteral("clicked"));
    tellOfMenu(0, QStringLiteral("closed"));

    EXPECT_EQ(clicked.count(), 0);
    EXPECT_EQ(openChosen.count(), 1);
    EXPECT_EQ(toolTip(), QStringLiteral("11:59:59"));
}

/// Panels that are told apart by the desktop's name.
class NamedDesktopTest : public ItemHostTest {
protected:
    ~NamedDesktopTest() override { qputenv("XDG_CURRENT_DESKTOP", m_before); }

    /// What the host reads of a long text.
    void show(const char *desktopName)
    {
        qputenv("XDG_CURRENT_DESKTOP", desktopName);
        watcher = std::make_unique<Watcher>(desktop);
        host = std::make_unique<ItemHost>(bus, timers, clock);
        waitFor([this] { return host->isAvailable(); });
        host->setText(QString(170, u'w'));
    }
    QVariant property(const QString &name)
    {
        const QDBusMessage reply = call(desktop, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
            { itemInterface, name });
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }

    std::unique_ptr<Watcher> watcher;
    std::unique_ptr<ItemHost> host;

private:
    QByteArray m_before = qgetenv("XDG_CURRENT_DESKTOP");
};

TEST_F(NamedDesktopTest, hasAShortLabelInMate)
{
    show("MATE");

    EXPECT_EQ(property(QStringLiteral("XAyatanaLabel")), QString(59, u'w') + u'…');
}

TEST_F(NamedDesktopTest, paintsTheTextForCinnamonsPanel)
{
    show("X-Cinnamon");

    const auto pictures = qdbus_cast<QList<NotifierPixmap>>(property(QStringLiteral("IconPixmap")));
    ASSERT_EQ(pictures.size(), 4);
    EXPECT_EQ(pictures.constLast().height, 44);
    EXPECT_GT(pictures.constLast().width, 10 * 44);
    EXPECT_LT(pictures.constLast().width, 24 * 44);
}

TEST_F(NamedDesktopTest, isASymbolBesideAStripInPlasmasTrayAndAwayWhereItsPanelHasTheText)
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    watcher = std::make_unique<Watcher>(desktop);
    host = std::make_unique<ItemHost>(bus, timers, clock);
    const auto status = [this] { return property(QStringLiteral("Status")).toString(); };
    ASSERT_TRUE(waitFor([this] { return host->isSeen(); }));
    EXPECT_FALSE(host->isAvailable());

    host->setShown(false);
    EXPECT_EQ(status(), QStringLiteral("Active"));
    EXPECT_TRUE(host->isSeen());
    host->setOutranked(true);
    EXPECT_EQ(status(), QStringLiteral("Passive"));
    EXPECT_FALSE(host->isSeen());

    host->setOutranked(false);
    EXPECT_EQ(status(), QStringLiteral("Active"));
}

TEST_F(NamedDesktopTest, isAwayInPlasmasTrayThatComesAfterTheTextInItsPanel)
{
    qputenv("XDG_CURRENT_DESKTOP", "KDE");
    host = std::make_unique<ItemHost>(bus, timers, clock);
    host->setOutranked(true);
    host->setShown(false);

    watcher = std::make_unique<Watcher>(desktop);

    EXPECT_TRUE(waitFor([this] { return property(QStringLiteral("Status")) == QStringLiteral("Passive"); }));
}

TEST_F(NamedDesktopTest, leavesTheTextToAFeedWhileOneIsRead)
{
    const QString feed = QStringLiteral("me.kerno.glimmet.Feed");
    const auto pictures = [this] {
        return qdbus_cast<QList<NotifierPixmap>>(property(QStringLiteral("IconPixmap"))).size();
    };
    desktop.registerService(feed);
    show("X-Cinnamon");
    EXPECT_EQ(pictures(), 3);

    const HeardSignals heard(desktop, programName, QStringLiteral("/StatusNotifierItem"), itemInterface,
        { QStringLiteral("NewIcon") });
    desktop.unregisterService(feed);
    ASSERT_TRUE(waitFor([&] { return heard.all.size() == 1; }));
    EXPECT_EQ(pictures(), 4);
    host->setText(QStringLiteral("12:00"));
    desktop.registerService(feed);

    EXPECT_TRUE(waitFor([&] { return heard.all.size() == 3; }));
    EXPECT_EQ(pictures(), 3);
    host->setText(QStringLiteral("12:01"));
    settle(desktop);
    EXPECT_EQ(heard.all.size(), 3);
    desktop.unregisterService(feed);
}

/// A GNOME Shell: the watcher's owner is the shell.
class ShellHostTest : public ItemHostTest {
protected:
    ShellHostTest()
        : watcher(desktop)
    {
        desktop.registerService(QStringLiteral("org.gnome.Shell"));
        host = std::make_unique<ItemHost>(bus, timers, clock);
        waitFor([this] { return host->isAvailable(); });
    }
    ~ShellHostTest() override { desktop.unregisterService(QStringLiteral("org.gnome.Shell")); }

    QDBusMessage callMenu(const QString &method, const QVariantList &arguments)
    {
        return call(desktop, QStringLiteral("/StatusNotifierItem/Menu"),
            QStringLiteral("com.canonical.dbusmenu"), method, arguments);
    }
    QString entry(int number)
    {
        const QDBusMessage reply =
            callMenu(QStringLiteral("GetProperty"), { number, QStringLiteral("label") });
        return reply.arguments().value(0).value<QDBusVariant>().variant().toString();
    }
    void readMenu() { callMenu(QStringLiteral("GetLayout"), { 0, -1, QStringList() }); }
    void tellOfMenu(const QString &event)
    {
        callMenu(QStringLiteral("Event"), { 0, event, QVariant::fromValue(QDBusVariant(0)), 0U });
    }
    void openMenu() { tellOfMenu(QStringLiteral("opened")); }
    void closeMenu() { tellOfMenu(QStringLiteral("closed")); }
    QString status()
    {
        return call(desktop, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
            { QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("Status") })
            .arguments()
            .value(0)
            .value<QDBusVariant>()
            .variant()
            .toString();
    }
    QDBusMessage activate()
    {
        return call(desktop, QStringLiteral("/StatusNotifierItem"),
            QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("Activate"), { 1, 2 });
    }

    Watcher watcher;
    std::unique_ptr<ItemHost> host;
};

TEST_F(ShellHostTest, offersToOpenAndToQuitInItsMenu)
{
    EXPECT_EQ(entry(1), QStringLiteral("Open glimmet"));
    EXPECT_EQ(entry(2), QStringLiteral("Quit"));
}

TEST_F(ShellHostTest, takesItsOpenedMenuForTheClick)
{
    QSignalSpy clicked(host.get(), &ItemHost::clicked);

    openMenu();
    closeMenu();

    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(ShellHostTest, staysAwayUntilItsMenuIsClosed)
{
    QSignalSpy clicked(host.get(), &ItemHost::clicked);

    openMenu();
    // A host that is slow to look would find the item back and leave its menu open.
    timers.advance(999ms);
    EXPECT_EQ(clicked.count(), 0);
    EXPECT_EQ(status(), QStringLiteral("Passive"));
    closeMenu();

    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(status(), QStringLiteral("Active"));
}

TEST_F(ShellHostTest, takesTheClickOfAMenuThatClosesLateOnce)
{
    QSignalSpy clicked(host.get(), &ItemHost::clicked);

    openMenu();
    timers.advance(1s);
    ASSERT_EQ(clicked.count(), 1);
    EXPECT_EQ(status(), QStringLiteral("Passive"));
    closeMenu();

    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(status(), QStringLiteral("Active"));
}

TEST_F(ShellHostTest, comesBackWhereTheHostNeverTellsThatItsMenuIsClosed)
{
    readMenu();

    openMenu();
    ASSERT_EQ(status(), QStringLiteral("Passive"));

    timers.advance(5s);
    EXPECT_EQ(status(), QStringLiteral("Active"));
}

TEST_F(ShellHostTest, knowsNoPlaceUnderWaylandWhereOnlyItsMenuWasOpened)
{
    qputenv("WAYLAND_DISPLAY", "wayland-test");

    openMenu();
    closeMenu();
    EXPECT_EQ(host->anchor(), std::nullopt);

    timers.advance(2s);
    activate();
    qunsetenv("WAYLAND_DISPLAY");
    EXPECT_EQ(host->anchor(), QPoint(1, 2));
}

TEST_F(ShellHostTest, isPassiveForAsLongAsTheTextIsElsewhere)
{
    host->setShown(false);
    EXPECT_EQ(status(), QStringLiteral("Passive"));
    openMenu();
    closeMenu();
    timers.advance(1min);
    EXPECT_EQ(status(), QStringLiteral("Passive"));

    host->setShown(true);

    EXPECT_EQ(status(), QStringLiteral("Active"));
}

TEST_F(ShellHostTest, tellsAFeedOfItsTextWhileItIsPassive)
{
    const HeardSignals heard(desktop, programName, QStringLiteral("/StatusNotifierItem"), itemInterface,
        { QStringLiteral("XAyatanaNewLabel") });
    host->setShown(false);
    host->setText(QStringLiteral("not told"));
    desktop.registerService(FeedHost::feedName);
    // Until the host has noticed the feed, and one text more.
    int texts = 0;
    EXPECT_TRUE(waitFor([&] {
        host->setText(QString::number(++texts));
        return !heard.all.isEmpty();
    }));

    EXPECT_FALSE(heard.all.contains(QStringLiteral("XAyatanaNewLabel:not told")));
    EXPECT_EQ(status(), QStringLiteral("Passive"));
    desktop.unregisterService(FeedHost::feedName);
}

TEST_F(ShellHostTest, doesNotStartOverForAHostThatNeedNotShowIt)
{
    host->setShown(false);

    timers.advance(1min);

    EXPECT_EQ(watcher.registered.size(), 1);
    EXPECT_TRUE(host->isAvailable());
}

TEST_F(ShellHostTest, takesAnActivationForTheClickWhileNoMenuOpens)
{
    QSignalSpy clicked(host.get(), &ItemHost::clicked);

    const QDBusMessage answer = activate();

    EXPECT_EQ(answer.errorName(), QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
    EXPECT_EQ(clicked.count(), 1);
}

TEST_F(ShellHostTest, countsAMenuAndAnActivationOfOneClickOnce)
{
    QSignalSpy clicked(host.get(), &ItemHost::clicked);

    openMenu();
    activate();
    closeMenu();
    EXPECT_EQ(clicked.count(), 1);

    openMenu();
    closeMenu();
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(ShellHostTest, takesAnActivationLongAfterItsMenuForAClickOfItsOwn)
{
    openMenu();
    closeMenu();
    QSignalSpy clicked(host.get(), &ItemHost::clicked);

    timers.advance(1s);
    activate();
    EXPECT_EQ(clicked.count(), 0);

    timers.advance(1ms);
    activate();
    EXPECT_EQ(clicked.count(), 1);
}

} // namespace
} // namespace glimmet
