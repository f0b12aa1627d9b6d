#pragma once

#include "app/updates/UpdateNotification.h"
#include "app/updates/UpdateSchedule.h"
#include "platform/updates/PackageKitClient.h"
#include "platform/updates/UpdateFinding.h"
#include "platform/updates/UpdateState.h"

#include <QObject>

#include <chrono>
#include <memory>
#include <optional>

namespace glimmet {

class SessionBus;
class SystemBus;
class UpdateCheck;
class UpdateInstallation;
struct InstallationResult;

/// What an updater needs of the world. All of it outlives the updater.
struct UpdaterWorld {
    SystemBus &systemBus;
    const SessionBus &sessionBus;
    Timers &timers;
    const Clock &clock;
    QString program; ///< the path of the file that the program runs from
    std::chrono::milliseconds patience =
        std::chrono::minutes(5); ///< with a service of which nothing is heard
};

/// Keeps the program up to date by the package that installed it. What the user asks for is told by `state`,
/// for a window to show. By itself it only looks, and says what it found by one notification: no window, no
/// password, no error. Main thread.
class UpdaterController final : public QObject {
    Q_OBJECT

public:
    explicit UpdaterController(const UpdaterWorld &world, QObject *parent = nullptr);
    ~UpdaterController() override;

    /// Begins to look by itself.
    void start();

    /// The user wants to know. One that is under way, or has something to say, only shows itself again.
    void checkForUpdates();
    /// Installs what was found.
    void install();
    /// Gives up the check; asks to stop the installation, which may come too late.
    void cancel();
    /// The user has seen it. An installation goes on and shows itself again at its end.
    void dismiss();
    /// Has the program start again, as the version that is installed now.
    void restart();

    const UpdateState &state() const { return m_state; }

signals:
    void stateChanged();
    /// Show the state, in front of everything.
    void windowWanted();
    void restartRequested();

private:
    void checkByItself();
    void startCheck(Asking asking);
    void handleFinding(const UpdateFinding &finding);
    void handleOwnFinding(const UpdateFinding &finding);
    void handleNotification();
    void handleProgress(const TransactionProgress &progress);
    void handleInstallation(const InstallationResult &result);
    void endWork();
    void showWindow();
    void setState(const UpdateState &state);

    const SessionBus &m_sessionBus;
    QString m_program;
    PackageKitClient m_client;
    UpdateNotification m_notification;
    UpdateSchedule m_schedule;
    UpdateState m_state;
    UpdateFinding m_finding; ///< the last one
    bool m_isDismissed = false; ///< the user closed the window of the installation
    std::unique_ptr<UpdateCheck> m_check;
    std::unique_ptr<UpdateInstallation> m_installation;
};

} // namespace glimmet
