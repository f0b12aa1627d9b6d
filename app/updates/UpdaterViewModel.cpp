#include "app/updates/UpdaterViewModel.h"

namespace glimmet {

UpdaterViewModel::UpdaterViewModel(const UpdaterWorld &world, QObject *parent)
    : QObject(parent)
    , m_updaterController(world)
{
    m_updaterController.start();
}

void UpdaterViewModel::checkForUpdates()
{
    m_updaterController.checkForUpdates();
}

} // namespace glimmet
