#include "ui/panel/GlimmetPanelModule.h"

#include "ui/panel/PanelAccessibility.h"
#include "ui/panel/PanelWindow.h"
#include "ui/updates/UpdateWindow.h"

namespace glimmet {

GlimmetPanelModule::GlimmetPanelModule()
{
    // Painted on the processor: the panel is small, and the graphics libraries would cost more memory than
    // all of it. It must be said before the first window.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    installPanelAccessibility();
}

std::unique_ptr<Panel> GlimmetPanelModule::makePanel(
    TickerViewModel &ticker, const PanelServices &services, const Options &options)
{
    return std::make_unique<PanelWindow>(ticker, services, options);
}

std::unique_ptr<UpdatePanel> GlimmetPanelModule::makeUpdateWindow(
    const UpdateState &state, const UpdateAnswers &answers, const DesktopLook &look)
{
    return std::make_unique<UpdateWindow>(state, answers, look);
}

} // namespace glimmet
