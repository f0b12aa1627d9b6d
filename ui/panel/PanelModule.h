#pragma once

#include "platform/desktop/DesktopLook.h"
#include "ui/panel/PanelServices.h"

#include <QtPlugin>

#include <functional>
#include <memory>

class QWindow;

namespace glimmet {

class TickerViewModel;
struct UpdateState;

/// An open panel, or another window in its look. Destroying it closes its window and gives back the QML
/// engine with everything in it.
class Panel {
public:
    virtual ~Panel() = default;

    /// The panel's window: frameless, not shown yet; its owner places and shows it. Its size is the panel's
    /// natural one; a window of lower height makes the middle scroll.
    virtual QWindow &window() = 0;
    virtual void setLook(const DesktopLook &look) = 0;
};

/// The window of software updates.
class UpdatePanel : public Panel {
public:
    virtual void setState(const UpdateState &state) = 0;
};

/// What the user may answer in the window of software updates. Called while the window's QML is running, so
/// that none of them may destroy the window before the event loop goes on.
struct UpdateAnswers {
    std::function<void()> install;
    std::function<void()> restart;
    std::function<void()> cancel;
};

/// Makes panels. It comes as a module of its own that is loaded on the first opening, so that a program that
/// only shows its text never carries the QML engine.
class PanelModule {
public:
    virtual ~PanelModule() = default;

    struct Options {
        DesktopLook look;
        bool isTranslucent = true; ///< a compositor shows the rounded corners; without one they are masked
    };
    /// A panel that edits `ticker`, which outlives it. Main thread.
    virtual std::unique_ptr<Panel> makePanel(
        TickerViewModel &ticker, const PanelServices &services, const Options &options) = 0;

    /// The window that shows `state`: titled, as large as its words, not shown yet. Main thread.
    virtual std::unique_ptr<UpdatePanel> makeUpdateWindow(
        const UpdateState &state, const UpdateAnswers &answers, const DesktopLook &look) = 0;
};

} // namespace glimmet

#define GLIMMET_PANEL_MODULE_IID "me.kerno.glimmet.PanelModule/4"
Q_DECLARE_INTERFACE(glimmet::PanelModule, GLIMMET_PANEL_MODULE_IID)
