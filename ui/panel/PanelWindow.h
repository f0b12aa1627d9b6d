#pragma once

#include "ui/panel/PanelHost.h"
#include "ui/panel/PanelModule.h"

#include <QQuickView>

namespace glimmet {

class Appearance;

/// The panel in its window. It carries an engine of its own, so that closing it gives everything back.
class PanelWindow final : public Panel {
public:
    PanelWindow(TickerViewModel &ticker, const PanelServices &services, const PanelModule::Options &options);
    /// What is being entered counts, as where the keyboard leaves it.
    ~PanelWindow() override;
    Q_DISABLE_COPY_MOVE(PanelWindow)

    QWindow &window() override { return m_view; }
    void setLook(const DesktopLook &look) override;

private:
    void dress();
    void connectHost(const PanelServices &services);
    /// Makes the mask anew whenever the scale of the window's screen changes.
    void followScale();
    void maskCorners();

    const bool m_isTranslucent;
    PanelHost m_host;
    QQuickView m_view;
    Appearance &m_appearance; ///< the engine's
};

} // namespace glimmet
