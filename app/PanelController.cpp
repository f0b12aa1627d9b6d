#include "app/PanelController.h"

#include "app/CompositionWatch.h"
#include "app/PanelBackdrop.h"
#include "app/PanelPlacement.h"
#include "app/Screens.h"
#include "core/TickerViewModel.h"
#include "platform/desktop/X11.h"
#include "ui/panel/PanelModule.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <chrono>
#include <malloc.h>
#include <utility>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

/// A click on the item closes the open panel at its press already, since it is a click elsewhere; the host
/// tells of the same click up to this long afterwards. Any later click is told apart by its own press.
constexpr std::chrono::milliseconds busyHostTime = 5s;
/// The same where a later click could not be told apart: where only the keyboard's going away told of the
/// click, or where the press was not at a bar, so that the next one may be Wayland's alone.
constexpr std::chrono::milliseconds hostTime = 700ms;
/// While a host's own menu or grab goes away, the keyboard may pass by the new panel.
constexpr std::chrono::milliseconds settlingTime = 400ms;
/// A keyring takes its dialog away in its own time, and the keyboard goes wherever the window manager likes.
constexpr std::chrono::milliseconds settlingTimeAfterDialog = 2s;
/// A pointer whose button is still down stays with what it was pressed on.
constexpr std::chrono::milliseconds pointerTime = 600ms;

ScreenSpace screenFor(std::optional<QPoint> anchor)
{
    const QList<ScreenSpace> screens = allScreens();
    return anchor ? screenAt(screens, *anchor) : screens.first();
}

/// Whether a press at this native position may have been at an item of a bar.
bool isAtBar(QPoint position)
{
    const QList<ScreenSpace> screens = allScreens();
    const ScreenSpace &screen = screenAt(screens, position);
    return !screen.toNative(screen.available).contains(position);
}

} // namespace

PanelController::PanelController(TickerViewModel &ticker, PanelServices services, Timers &timers,
    const SteadyClock &clock, QObject *parent)
    : QObject(parent)
    , m_ticker(ticker)
    , m_services(std::move(services))
    , m_searchTimer(timers, pointerTime, [this] { open(m_place); })
    , m_forgetTimer(timers, busyHostTime, [this] { forgetPresses(); })
    , m_sinceOpening(clock)
    , m_sinceClosing(clock)
{
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &PanelController::handleFocus);
    // What was on it may be nowhere now, with the keyboard.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, [this] { close(); });
}

PanelController::~PanelController() = default;

void PanelController::toggle(std::optional<QPoint> anchor, bool isAtEdge)
{
    if (m_presses)
        m_presses->catchUp();
    if (isOpen())
        close(Cause::Request);
    else if (!isClosingClick())
        drop(anchor, isAtEdge);
    m_sinceClosing.reset();
}

void PanelController::drop(std::optional<QPoint> anchor, bool isAtEdge)
{
    if (m_searchTimer.isRunning())
        return;
    if (isAtEdge && anchor)
        m_place = anchor;
    prepareBackdrop();
    if (m_backdrop && !isAtEdge)
        m_searchTimer.start();
    else
        open(anchor);
}

void PanelController::open(std::optional<QPoint> anchor)
{
    m_searchTimer.stop();
    PanelModule *panels = module();
    if (panels == nullptr || QGuiApplication::screens().isEmpty()) {
        m_backdrop.reset();
        return;
    }
    if (!isOpen()) {
        prepareBackdrop();
        if (m_backdrop && m_place)
            anchor = m_place;
        m_panel =
            panels->makePanel(m_ticker, m_services, { m_look, X11::isCompositing() || X11::isMissing() });
        m_anchor = anchor;
        m_naturalSize = m_panel->window().size();
        place();
        watch(m_panel->window());
        letPressesThrough();
        m_panel->window().show();
        m_sinceOpening.start();
        m_settlingTime = settlingTime;
        emit openChanged();
    }
    takeKeyboard();
}

void PanelController::close()
{
    close(Cause::Request);
}

void PanelController::pressElsewhere()
{
    if (!isOpen())
        m_wasPressedSince = true;
    // The shell's own candidates of an input method hang from the caret.
    else if (!m_isHeld && !m_composition->isComposing())
        close(Cause::Request);
}

void PanelController::prepareBackdrop()
{
    if (m_backdrop || !m_makeBackdrop)
        return;
    m_backdrop = m_makeBackdrop();
    if (!m_backdrop)
        return;
    // Queued: both may end what tells of them.
    connect(m_backdrop.get(), &PanelBackdrop::pointerFound, this, &PanelController::handlePointer,
        Qt::QueuedConnection);
    connect(m_backdrop.get(), &PanelBackdrop::pressed, this, &PanelController::handlePressBehind,
        Qt::QueuedConnection);
    connect(m_backdrop.get(), &PanelBackdrop::outputGone, this, &PanelController::handleOutputGone,
        Qt::QueuedConnection);
    connect(m_backdrop.get(), &PanelBackdrop::keyboardTaken, this, &PanelController::handleKeyboardTaken,
        Qt::QueuedConnection);
}

X11::Placing PanelController::placing() const
{
    return m_backdrop ? X11::Placing::Unmanaged : X11::Placing::Managed;
}

void PanelController::takeKeyboard()
{
    X11::giveFocus(m_panel->window(), placing());
}

void PanelController::handleActivation(quint32 window)
{
    // The grab would have it type into the panel.
    if (m_backdrop && isOpen() && !m_isHeld && window != 0 && window != windowId())
        close(Cause::FocusElsewhere);
}

void PanelController::handlePointer(QPoint besideBar)
{
    if (!m_searchTimer.isRunning())
        return;
    m_place = besideBar;
    open(m_place);
}

void PanelController::handlePressBehind()
{
    if (isOpen() && !m_isHeld && !m_composition->isComposing())
        close(Cause::Request);
}

void PanelController::handleOutputGone()
{
    m_place.reset();
    close();
}

void PanelController::handleKeyboardTaken()
{
    // After a dialog the window of before gets it back, in the compositor's own time.
    if (isOpen() && !m_isHeld && m_sinceOpening.hasPassed(m_settlingTime))
        close(Cause::FocusElsewhere);
}

void PanelController::letPressesThrough()
{
    if (!m_backdrop || !isOpen())
        return;
    const QWindow &window = m_panel->window();
    m_backdrop->letThrough(spaceOf(*window.screen()).toNative(window.geometry()));
    // A keyring's dialog and the candidates of an input method lie under it.
    m_backdrop->setOpen(m_isHeld || m_composition->isComposing());
}

void PanelController::setHeld(bool isHeld)
{
    // The last press at the dialog may still be on its way.
    if (m_presses)
        m_presses->catchUp();
    const bool isReleased = std::exchange(m_isHeld, isHeld) && !isHeld;
    letPressesThrough();
    // What is typed belongs to the dialog.
    if (m_backdrop && isHeld)
        X11::releaseKeyboard();
    if (!isReleased || !isOpen())
        return;
    m_sinceOpening.start();
    m_settlingTime = settlingTimeAfterDialog;
    takeKeyboard();
}

quint32 PanelController::windowId() const
{
    return isOpen() && !X11::isMissing() ? static_cast<quint32>(m_panel->window().winId()) : 0;
}

void PanelController::setLook(const DesktopLook &look)
{
    m_look = look;
    if (m_panel)
        m_panel->setLook(look);
}

PanelModule *PanelController::module()
{
    PanelModule *panels = m_library.module();
    if (panels == nullptr)
        emit failed(m_library.error());
    if (m_library.isReplaced())
        emit replaced();
    return panels;
}

void PanelController::place()
{
    QWindow &window = m_panel->window();
    const ScreenSpace screen = screenFor(m_anchor);
    const QPoint corner = screen.available.topRight();
    const QPoint item = m_anchor ? screen.toLogical(*m_anchor) : corner;
    m_geometry = panelGeometry(m_naturalSize, item, screen);
    m_isPutBack = false;
    window.setGeometry(m_geometry);
    // One of a size of its own is not tiled.
    if (X11::isMissing()) {
        window.setMinimumSize(m_geometry.size());
        window.setMaximumSize(m_geometry.size());
    }
    window.create();
    X11::makeDropDown(window, placing());
}

void PanelController::putBack()
{
    if (!isOpen() || m_isPutBack || m_panel->window().position() == m_geometry.topLeft())
        return;
    // Once: a window manager may insist.
    m_isPutBack = true;
    if (!m_sinceOpening.hasPassed(settlingTime))
        m_panel->window().setPosition(m_geometry.topLeft());
}

void PanelController::watch(QWindow &window)
{
    m_forgetTimer.stop();
    m_presses = std::make_unique<PressWatch>();
    connect(m_presses.get(), &PressWatch::pressed, this, &PanelController::handlePress);
    connect(m_presses.get(), &PressWatch::activated, this, &PanelController::handleActivation);
    m_composition = std::make_unique<CompositionWatch>(window);
    // The press that chose among the input method's candidates may still be on its way.
    connect(m_composition.get(), &CompositionWatch::ending, m_presses.get(), &PressWatch::catchUp);
    connect(m_composition.get(), &CompositionWatch::changed, this, &PanelController::letPressesThrough);
    for (const auto change : { &QScreen::geometryChanged, &QScreen::availableGeometryChanged })
        connect(window.screen(), change, &window, [this] {
            // The window outlives the closing by the rest of that turn of the loop.
            if (!isOpen())
                return;
            place();
            letPressesThrough();
        });
    // i3 places a new window inside a frame, and then leaves the frame away. Queued: it moves both ways at
    // once.
    for (const auto change : { &QWindow::xChanged, &QWindow::yChanged })
        connect(&window, change, this, &PanelController::putBack, Qt::QueuedConnection);
    // Queued: the panel closes itself from inside its own event, and must not be destroyed there.
    connect(
        &window, &QWindow::visibleChanged, this,
        [this](bool isVisible) {
            if (!isVisible && isOpen())
                close(Cause::Request);
        },
        Qt::QueuedConnection);
}

void PanelController::handlePress(QPoint position, PressWatch::Ground ground)
{
    if (!isOpen()) {
        m_wasPressedSince = true;
        return;
    }
    if (m_isHeld)
        return;
    const QWindow &window = m_panel->window();
    if (spaceOf(*window.screen()).toNative(window.geometry()).contains(position))
        return;
    if (isAtBar(position))
        close(Cause::PressAtBar);
    // At a window it may be at the input method's candidates, which hang from the caret beyond the panel's
    // edge and never take the keyboard. Other windows do, and that closes the panel.
    else if (ground == PressWatch::Ground::Background || !m_composition->isComposing())
        close(Cause::PressElsewhere);
}

void PanelController::handleFocus(const QWindow *focused)
{
    if (!isOpen() || m_isHeld || focused == &m_panel->window())
        return;
    // The press that took the keyboard away may still be on its way, since it comes over another connection.
    m_presses->catchUp();
    if (!isOpen())
        return;
    // Another window of our own takes it on purpose.
    const bool isOurs = focused != nullptr;
    // A Wayland compositor gives the keyboard to whom it likes, once for all.
    if (isOurs || X11::isMissing() || m_sinceOpening.hasPassed(m_settlingTime))
        close(Cause::FocusElsewhere);
    else
        takeKeyboard();
}

void PanelController::close(Cause cause)
{
    if (!isOpen())
        return;
    // A press that closed it by the backdrop went no further: no click is still to come of it.
    m_closing = m_backdrop ? Cause::Request : cause;
    m_backdrop.reset();
    m_wasPressedSince = false;
    m_sinceClosing.start();
    m_forgetTimer.start();
    // Later in this turn of the loop: the call may come from the panel's own window.
    QTimer::singleShot(0, this, [panel = std::shared_ptr<Panel>(std::move(m_panel))]() mutable {
        panel.reset();
        malloc_trim(0);
    });
    emit openChanged();
}

void PanelController::forgetPresses()
{
    if (!isOpen())
        m_presses.reset();
}

bool PanelController::isClosingClick() const
{
    if (m_closing == Cause::Request || m_wasPressedSince)
        return false;
    return !m_sinceClosing.hasPassed(m_closing == Cause::PressAtBar ? busyHostTime : hostTime);
}

} // namespace glimmet
