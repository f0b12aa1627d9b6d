#pragma once

#include "app/updates/UpdaterController.h"

#include <QObject>

namespace glimmet {

/// The updater as the panel gets it. There is nothing to observe: a check may be asked for at any time. Main
/// thread.
class UpdaterViewModel final : public QObject {
    Q_OBJECT

public:
    /// From here on the updater looks for updates by itself.
    explicit UpdaterViewModel(const UpdaterWorld &world, QObject *parent = nullptr);

    /// Its window and what it looks for belong to it alone.
    UpdaterController &updaterController() { return m_updaterController; }

    /// The user wants to know whether there is an update.
    Q_INVOKABLE void checkForUpdates();

private:
    UpdaterController m_updaterController;
};

} // namespace glimmet
