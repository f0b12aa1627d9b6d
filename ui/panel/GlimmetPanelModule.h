#pragma once

#include "ui/panel/PanelModule.h"

#include <QObject>

namespace glimmet {

/// What the program finds when it loads this library.
class GlimmetPanelModule final : public QObject, public PanelModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID GLIMMET_PANEL_MODULE_IID FILE "GlimmetPanelModule.json")
    Q_INTERFACES(glimmet::PanelModule)

public:
    GlimmetPanelModule();

    std::unique_ptr<Panel> makePanel(
        TickerViewModel &ticker, const PanelServices &services, const Options &options) override;
    std::unique_ptr<UpdatePanel> makeUpdateWindow(
        const UpdateState &state, const UpdateAnswers &answers, const DesktopLook &look) override;
};

} // namespace glimmet
