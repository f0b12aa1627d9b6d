#pragma once

#include "platform/desktop/DesktopNotification.h"

#include <QObject>
#include <QString>

namespace glimmet {

class SessionBus;

/// Tells the user by one notification that there is an update, once a version. Where the desktop cannot show
/// it, nothing happens, and the next time counts. Main thread.
class UpdateNotification final : public QObject {
    Q_OBJECT

public:
    explicit UpdateNotification(QObject *parent = nullptr);

    void show(const SessionBus &sessionBus, const QString &installedVersion, const QString &newVersion);
    /// Takes the notification away, if it is there.
    void close();

signals:
    void installChosen();

private:
    DesktopNotification m_notification{ this };
    QString m_lastVersion; ///< of which the user was told
};

} // namespace glimmet
