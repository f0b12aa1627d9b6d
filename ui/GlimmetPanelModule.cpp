#include "ui/GlimmetPanelModule.h"

#include "ui/PanelAccessibility.h"
#include "ui/PanelWindow.h"
#include "ui/UpdateWindow.h"

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
