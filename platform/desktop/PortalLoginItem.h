#pragma once

#include "platform/desktop/LoginItem.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

namespace glimmet {

class SessionBus;

/// Asks the background portal to start the program at login, which is the only way out of a sandbox
/// (https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Background.html). The portal
/// cannot be asked what it did before, so that each run begins without knowing.
class PortalLoginItem final : public QObject, public LoginItem {
    Q_OBJECT

public:
    /// `command` is what is started, inside the sandbox. `bus` outlives it.
    PortalLoginItem(const SessionBus &bus, QStringList command, QObject *parent = nullptr);
    /// Whether this process, which runs from the file `program`, is in a sandbox.
    static bool isNeeded(const QString &program);

    LoginItemStatus status() const override { return m_status; }
    void registerItem(const Completion &completion) override;
    void unregisterItem(const Completion &completion) override;

private slots:
    void handleResponse(const QDBusMessage &response);

private:
    void ask(bool autostart, const Completion &completion);
    void finish(const std::optional<QString> &failure);

    const SessionBus &m_sessionBus;
    QDBusConnection m_bus{ QString() }; ///< of the request that is answered last
    QStringList m_command;
    LoginItemStatus m_status = LoginItemStatus::NotRegistered;
    bool m_wantsAutostart = false;
    QString m_request; ///< the path of the one that is answered last
    Completion m_completion;
};

} // namespace glimmet
