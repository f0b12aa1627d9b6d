#pragma once

#include "app/PanelLibrary.h"
#include "platform/SingleShot.h"
#include "platform/SteadyClock.h"
#include "platform/desktop/DesktopLook.h"
#include "platform/desktop/PressWatch.h"
#include "platform/desktop/X11.h"
#include "ui/panel/PanelServices.h"

#include <QObject>
#include <QPoint>
#include <QSize>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

class QWindow;

namespace glimmet {

class CompositionWatch;
class Panel;
class PanelBackdrop;
class TickerViewModel;

/// Opens the panel under the menu-bar item and closes it: by a second click, a click elsewhere, Escape or a
/// quit. Each opening builds the panel anew, each closing gives its memory back. The panel's module is loaded
/// by the first opening.
class PanelController final : public QObject {
    Q_OBJECT

public:
    /// `ticker`, `timers` and `clock` outlive it.
    PanelController(TickerViewModel &ticker, PanelServices services, Timers &timers, const SteadyClock &clock,
        QObject *parent = nullptr);
    ~PanelController() override;

    /// On a desktop where the X server knows neither the pointer nor presses: what lies behind the panel. It
    /// makes none where the X server knows them.
    using MakeBackdrop = std::function<std::unique_ptr<PanelBackdrop>()>;
    void setBackdrops(MakeBackdrop make) { m_makeBackdrop = std::move(make); }

    /// What a click on the item does. `anchor`: native pixels; none: the upper right corner of the first
    /// screen. Where there is a backdrop, it drops down from the pointer, unless it is known that the anchor
    /// is on the edge that it hangs from.
    void toggle(std::optional<QPoint> anchor, bool isAtEdge = false);
    /// Opens the panel, or brings the open one to the front.
    void open(std::optional<QPoint> anchor);
    void close();
    /// What a press elsewhere does of which only the desktop's shell has told: one at something of its own.
    void pressElsewhere();
    bool isOpen() const { return m_panel != nullptr; }
    /// While it is held, neither a press nor the keyboard's going elsewhere closes it: a dialog that belongs
    /// to it is up.
    void setHeld(bool isHeld);
    /// The panel's X11 window; 0 while it is closed, and without an X server.
    quint32 windowId() const;

    void setLook(const DesktopLook &look);

signals:
    void openChanged();
    /// The panel could not be loaded, in words.
    void failed(const QString &reason);
    /// An update has replaced the program: it has to start again to have a panel.
    void replaced();

private:
    enum class Cause { Request, PressAtBar, PressElsewhere, FocusElsewhere };

    PanelModule *module();
    void drop(std::optional<QPoint> anchor, bool isAtEdge);
    void prepareBackdrop();
    void letPressesThrough();
    void place();
    void putBack();
    void watch(QWindow &window);
    void handlePress(QPoint position, PressWatch::Ground ground);
    void handleFocus(const QWindow *focused);
    X11::Placing placing() const;
    void takeKeyboard();
    void handleActivation(quint32 window);
    void handlePointer(QPoint besideBar);
    void handlePressBehind();
    void handleOutputGone();
    void handleKeyboardTaken();
    void close(Cause cause);
    void forgetPresses();
    bool isClosingClick() const;

    TickerViewModel &m_ticker;
    PanelServices m_services;
    DesktopLook m_look;
    PanelLibrary m_library;
    std::unique_ptr<Panel> m_panel;
    std::unique_ptr<PressWatch> m_presses;
    std::unique_ptr<CompositionWatch> m_composition;
    MakeBackdrop m_makeBackdrop;
    std::unique_ptr<PanelBackdrop> m_backdrop;
    SingleShot m_searchTimer; ///< while the pointer is looked for
    std::optional<QPoint> m_place; ///< of the item's edge, as it was known last
    std::optional<QPoint> m_anchor;
    QSize m_naturalSize;
    QRect m_geometry; ///< as it was asked for
    bool m_isPutBack = false; ///< or need not be any more
    bool m_isHeld = false;
    SingleShot m_forgetTimer;
    Stopwatch m_sinceOpening; ///< or since it was last let go
    std::chrono::milliseconds m_settlingTime{ 0 };
    Cause m_closing = Cause::Request;
    Stopwatch m_sinceClosing;
    bool m_wasPressedSince = false;
};

} // namespace glimmet
