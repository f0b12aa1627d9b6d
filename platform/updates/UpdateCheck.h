#pragma once

#include "platform/updates/UpdateFinding.h"

#include <QObject>
#include <QString>

namespace glimmet {

class PackageKitClient;

/// One look for an update of the package that a program belongs to: which package that is, the sources' lists
/// fetched anew, what could be updated, and what is new in it. PackageKit itself is asked who owns the
/// program: it answers alike on every distribution, names the version as it names those to update to, and
/// costs no process. Main thread.
class UpdateCheck final : public QObject {
    Q_OBJECT

public:
    /// `client` outlives the check, which has it for itself. `program`: the path of the program's file.
    UpdateCheck(PackageKitClient &client, QString program, Asking asking, QObject *parent = nullptr);
    /// One that has not finished is cancelled.
    ~UpdateCheck() override;

    void start();

signals:
    /// Once, from the event loop.
    void finished(const glimmet::UpdateFinding &finding);

private:
    void handleOwner(const TransactionResult &owner);
    void handleRefreshed(const TransactionResult &refreshed);
    void handleUpdates(const TransactionResult &updates);
    void handleChanges(const TransactionResult &changes);
    void finish();

    PackageKitClient &m_client;
    bool m_isRunning = false;
    QString m_program;
    Asking m_asking;
    TransactionResult m_refreshed;
    UpdateFinding m_finding;
};

} // namespace glimmet
