#pragma once

#include "platform/updates/PackageKit.h"

#include <QObject>

#include <optional>

namespace glimmet {

class PackageKitClient;

/// What an installation has come to, going by the version that is installed afterwards and not by what the
/// service says of its own success.
struct InstallationResult {
    std::optional<PackageId> installed; ///< the newer version, where there is one now
    bool wasCancelled = false;
    /// Where there is none, and the user did not cancel; none also where the service reported success.
    std::optional<PackageKitFailure> failure;
};

/// Installs one update. Main thread.
class UpdateInstallation final : public QObject {
    Q_OBJECT

public:
    /// `client` outlives the installation, which has it for itself.
    UpdateInstallation(
        PackageKitClient &client, PackageId installed, PackageId update, QObject *parent = nullptr);
    /// One that has not finished is cancelled.
    ~UpdateInstallation() override;

    void start();
    /// Asks the service to stop; `finished` follows, and may also tell that it was too late.
    void cancel();

signals:
    /// Once, from the event loop.
    void finished(const glimmet::InstallationResult &result);

private:
    void handleInstalled(const TransactionResult &result);
    void handleVersions(const TransactionResult &versions);

    PackageKitClient &m_client;
    bool m_isRunning = false;
    PackageId m_installed;
    PackageId m_update;
    TransactionResult m_result;
    bool m_isVerifying = false;
};

} // namespace glimmet
