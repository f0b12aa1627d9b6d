#include "app/updates/UpdateWindowController.h"

#include "app/updates/UpdaterController.h"
#include "platform/desktop/X11.h"
#include "ui/panel/PanelModule.h"

#include <QTimer>
#include <QWindow>

#include <malloc.h>

namespace glimmet {

UpdateWindowController::UpdateWindowController(UpdaterController &updater, QObject *parent)
    : QObject(parent)
    , m_updater(updater)
{
    connect(&updater, &UpdaterController::windowWanted, this, &UpdateWindowController::open);
    connect(&updater, &UpdaterController::stateChanged, this, &UpdateWindowController::follow);
}

UpdateWindowController::~UpdateWindowController() = default;

void UpdateWindowController::setLook(const DesktopLook &look)
{
    m_look = look;
    if (m_shown)
        m_shown->setLook(look);
}

void UpdateWindowController::open()
{
    if (!m_shown && !make())
        return m_updater.dismiss();
    m_shown->window().show();
    m_shown->window().raise();
    X11::giveFocus(m_shown->window(), X11::Placing::Managed);
}

bool UpdateWindowController::make()
{
    PanelModule *module = m_library.module();
    if (module == nullptr) {
        emit failed(m_library.error());
        if (m_library.isReplaced())
            emit replaced();
        return false;
    }
    m_shown = module->makeUpdateWindow(m_updater.state(),
        { later(&UpdaterController::install), later(&UpdaterController::restart),
            later(&UpdaterController::cancel) },
        m_look);
    // Queued: the window closes itself from inside its own event, and must not be destroyed there.
    connect(&m_shown->window(), &QWindow::visibleChanged, this, &UpdateWindowController::handleVisible,
        Qt::QueuedConnection);
    return true;
}

std::function<void()> UpdateWindowController::later(void (UpdaterController::*operation)())
{
    return [this, operation] { QMetaObject::invokeMethod(&m_updater, operation, Qt::QueuedConnection); };
}

void UpdateWindowController::follow()
{
    if (m_updater.state().phase == UpdatePhase::Idle)
        close();
    else if (m_shown)
        m_shown->setState(m_updater.state());
}

void UpdateWindowController::handleVisible(bool isVisible)
{
    if (isVisible || !m_shown || m_shown->window().isVisible())
        return;
    close();
    m_updater.dismiss();
}

void UpdateWindowController::close()
{
    // Later in this turn of the loop: the call may come from the window itself.
    QTimer::singleShot(0, this, [shown = std::shared_ptr<UpdatePanel>(std::move(m_shown))]() mutable {
        shown.reset();
        malloc_trim(0);
    });
}

} // namespace glimmet
