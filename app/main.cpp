#include "app/CommandLine.h"
#include "app/LayerBackdrop.h"
#include "app/MenuBar.h"
#include "app/PanelController.h"
#include "app/Restart.h"
#include "app/updates/UpdateWindowController.h"
#include "app/updates/UpdaterViewModel.h"
#include "core/TickerViewModel.h"
#include "platform/Clock.h"
#include "platform/DiagnosticLog.h"
#include "platform/JsonPreferencesStore.h"
#include "platform/Process.h"
#include "platform/QuitSignals.h"
#include "platform/RepeatingTimer.h"
#include "platform/SteadyClock.h"
#include "platform/TimeAsleep.h"
#include "platform/UserRegion.h"
#include "platform/bus/SessionBus.h"
#include "platform/bus/SystemBus.h"
#include "platform/desktop/AutostartLoginItem.h"
#include "platform/desktop/DesktopLookWatch.h"
#include "platform/desktop/GnomeExtension.h"
#include "platform/desktop/Instance.h"
#include "platform/desktop/PortalLoginItem.h"
#include "platform/desktop/XDisplay.h"
#include "platform/keys/KeychainHelper.h"
#include "platform/net/HttpClient.h"
#include "platform/wayland/WaylandConnection.h"
#include "prices/CryptoService.h"
#include "revenue/RevenueServices.h"

#include <QFont>
#include <QGuiApplication>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

using namespace glimmet;

namespace {

// At a busy login XWayland starts only with its first client, which waits for it.
constexpr std::chrono::seconds patienceWithTheDisplay{ 30 };

/// Whether something is there to draw on, with the connection to be kept until Qt has its own.
struct Drawing {
    bool isPossible = false;
    std::shared_ptr<xcb_connection_t> connection;
};

/// What is said where no X server is there: with a Wayland compositor the program goes on all the same.
Drawing drawWithoutX(const QByteArray &reason)
{
    const Substitute substitute = substituteForX();
    if (substitute == Substitute::Wayland) {
        qputenv("QT_QPA_PLATFORM", "wayland");
        std::fprintf(stderr, "glimmet finds no X display (%s): the panel opens where the desktop puts it\n",
            reason.constData());
        return { true, nullptr };
    }
    const char *way = substitute == Substitute::NotInstalled ? ", or the package qt6-wayland" : "";
    std::fprintf(stderr, "glimmet needs an X display (%s)%s\n", reason.constData(), way);
    return {};
}

/// The panel places itself, which only an X server lets a program do; under Wayland that is XWayland. Where
/// there is none, the user is told.
Drawing chooseDrawing()
{
    qputenv("QT_QPA_PLATFORM", platformFor(qgetenv("QT_QPA_PLATFORM")));
    const QByteArray name = qgetenv("DISPLAY");
    const XDisplayLook look = lookAtDisplay(patienceWithTheDisplay);
    switch (look.display) {
    case XDisplay::Unset:
        return drawWithoutX("DISPLAY is not set");
    case XDisplay::Unreachable:
        return drawWithoutX("cannot connect to " + name);
    case XDisplay::Silent:
        std::fprintf(stderr, "glimmet needs an X display (%s does not answer)\n", name.constData());
        return {};
    case XDisplay::Answers:
        return { true, look.connection };
    }
    Q_UNREACHABLE();
}

/// Out of a sandbox nothing but the portal starts a program at login.
std::unique_ptr<LoginItem> makeLoginItem(const SessionBus &bus)
{
    const QString program = QCoreApplication::applicationFilePath();
    if (PortalLoginItem::isNeeded(program))
        return std::make_unique<PortalLoginItem>(bus, QStringList{ QCoreApplication::applicationName() });
    return std::make_unique<AutostartLoginItem>(AutostartLoginItem::defaultFolder(), program);
}

std::unique_ptr<PanelBackdrop> makeBackdrop(WaylandConnection &wayland, Timers &timers)
{
    return needsLayers(wayland) ? std::make_unique<LayerBackdrop>(wayland, qgetenv("SWAYSOCK"), timers)
                                : nullptr;
}

/// Everything meets here. Returns the exit status once the program has quit.
int run(DiagnosticLog &log, Restart &restart)
{
    EventLoopTimers timers;
    SessionBus bus(timers);
    bus.open();
    Instance instance(bus);
    const Instance::Launch launch = instance.handOver();
    if (launch == Instance::Launch::Refused)
        std::fputs("glimmet runs already, but does not answer\n", stderr);
    if (launch != Instance::Launch::First)
        return launch == Instance::Launch::HandedOver ? 0 : 1;

    // Before the keys: from here on a signal to end waits until a key that is being written is.
    QuitSignals quitSignals;
    const SystemClock clock;
    const SystemSteadyClock steadyClock;
    const SystemRegion region;
    JsonPreferencesStore preferences(JsonPreferencesStore::defaultPath(), timers, log);
    KeychainHelper keys(bus, timers, steadyClock);
    HttpClient http;
    CryptoService prices(http, log, CryptoService::yahooFinance);
    RevenueServices revenue(http, log, clock, steadyClock, region, liveEndpoints());
    const auto readClocks = [&] { return ClockReadings{ clock.now(), steadyClock.elapsed(), timeAsleep() }; };
    TickerViewModel ticker({ clock, region, timers, preferences, &prices, &revenue, &keys, readClocks });
    SystemBus systemBus;
    UpdaterViewModel updater({ systemBus, bus, timers, clock, QCoreApplication::applicationFilePath() });
    WaylandConnection wayland;
    MenuBar menuBar(menuBarHosts(bus, timers, steadyClock, wayland), timers);
    const std::unique_ptr<LoginItem> loginItem = makeLoginItem(bus);
    GnomeExtension topBar(bus, QStringLiteral("glimmet@kerno.me"));
    PanelController panel(ticker,
        { *loginItem, [&] { updater.checkForUpdates(); }, [&](const QString &line) { log.plainLine(line); },
            &topBar },
        timers, steadyClock);
    panel.setBackdrops([&] { return makeBackdrop(wayland, timers); });
    keys.setDialogParent([&panel] { return panel.windowId(); });
    UpdateWindowController updateWindow(updater.updaterController());
    DesktopLookWatch look;

    const auto showMode = [&] { menuBar.setMode(ticker.mode()); };
    const auto showText = [&] { menuBar.setText(ticker.currentDisplay()); };
    const auto showLook = [&] {
        menuBar.setColorScheme(look.look().scheme);
        panel.setLook(look.look());
        updateWindow.setLook(look.look());
    };
    const auto followLook = [&] { look.follow(bus.connection()); };
    const auto startAgain = [&] {
        restart.want();
        QCoreApplication::quit();
    };
    const auto openPanel = [&] { panel.open(menuBar.anchor()); };

    QObject::connect(&ticker, &TickerViewModel::modeChanged, &menuBar, showMode);
    QObject::connect(&ticker, &TickerViewModel::currentDisplayChanged, &menuBar, showText);
    QObject::connect(&menuBar, &MenuBar::clicked, &panel, &PanelController::toggle);
    QObject::connect(&menuBar, &MenuBar::pressedElsewhere, &panel, &PanelController::pressElsewhere);
    QObject::connect(&menuBar, &MenuBar::openChosen, &panel, &PanelController::open);
    QObject::connect(&menuBar, &MenuBar::quitChosen, &menuBar, &QCoreApplication::quit);
    QObject::connect(&menuBar, &MenuBar::moved, &menuBar,
        [&](const QString &place) { log.line(QStringLiteral("menu bar: ") + place); });
    QObject::connect(
        &panel, &PanelController::openChanged, &menuBar, [&] { menuBar.setPanelOpen(panel.isOpen()); });
    QObject::connect(&panel, &PanelController::failed, &menuBar,
        [&](const QString &reason) { log.line(QStringLiteral("panel: ") + reason); });
    QObject::connect(&updateWindow, &UpdateWindowController::failed, &menuBar,
        [&](const QString &reason) { log.line(QStringLiteral("updates: ") + reason); });
    QObject::connect(&panel, &PanelController::replaced, &menuBar, startAgain);
    QObject::connect(&updateWindow, &UpdateWindowController::replaced, &menuBar, startAgain);
    QObject::connect(
        &updater.updaterController(), &UpdaterController::restartRequested, &menuBar, startAgain);
    QObject::connect(&keys, &KeyStore::isAskingChanged, &panel, [&] { panel.setHeld(keys.isAsking()); });
    QObject::connect(&instance, &Instance::launchedAgain, &panel, openPanel);
    QObject::connect(&look, &DesktopLookWatch::changed, &panel, showLook);
    QObject::connect(&bus, &SessionBus::connected, &look, followLook);
    QObject::connect(&bus, &SessionBus::broken, &menuBar,
        [&] { log.line(QStringLiteral("session bus: lost, trying again")); });
    QObject::connect(&quitSignals, &QuitSignals::received, &menuBar, &QCoreApplication::quit);

    showMode();
    showText();
    showLook();
    if (bus.isConnected())
        followLook();
    return QGuiApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    openClosedStandardStreams();
    if (const std::optional<int> status = answered(readCommandLine(argc, argv), GLIMMET_VERSION))
        return *status;
    forbidCoreDumps();
    // Qt's accessibility asks the bus for names in a way at which the D-Bus library ends the process if the
    // bus has just gone; as a warning it does no harm.
    qputenv("DBUS_FATAL_WARNINGS", "0");
    DiagnosticLog log;
    Drawing drawing = chooseDrawing();
    // At once: a thread may still be waiting for the display.
    if (!drawing.isPossible)
        std::_Exit(1);
    QGuiApplication application(argc, argv);
    drawing.connection.reset();
    QGuiApplication::setApplicationName(QStringLiteral("glimmet"));
    QGuiApplication::setApplicationVersion(QStringLiteral(GLIMMET_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("me.kerno.glimmet"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // Else a sign that exists both as text and as emoji is drawn as text.
    QFont::insertSubstitution(QStringLiteral("Inter"), QStringLiteral("Noto Color Emoji"));

    Restart restart(argc, argv);
    const int status = run(log, restart);
    std::fflush(nullptr);
    if (restart.isWanted()) {
        restart.now();
        std::perror("glimmet could not start again");
    }
    // Leaving main would wait for every name that is being looked up: where no name server answers, that
    // takes longer than a session has at its end. Everything of the program's own is gone by now.
    std::_Exit(status);
}
