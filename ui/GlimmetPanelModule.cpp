#include "ui/GlimmetPanelModule.h"

#include "ui/PanelWindow.h"

namespace glimmet {

std::unique_ptr<Panel> GlimmetPanelModule::makePanel(TickerViewModel &ticker, const Options &options)
{
    // Painted on the processor: the panel is small, and the graphics libraries would cost more memory than
    // all of it.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    return std::make_unique<PanelWindow>(ticker, options);
}

} // namespace glimmet
