#pragma once

#include "platform/RepeatingTimer.h"

#include <QDBusConnection>
#include <QObject>
#include <QStringList>

#include <memory>

namespace glimmet {

/// The program's connection to the session bus. It outlives the bus: a lost connection is made again as soon
/// as there is a bus at the user's address. A bus is never launched. Main thread.
class SessionBus : public QObject {
    Q_OBJECT

public:
    /// `timers` outlives it.
    explicit SessionBus(Timers &timers, QObject *parent = nullptr);
    ~SessionBus() override;

    /// Connects, or goes on trying. `connected` tells of the success, also of one at once.
    void open();
    /// Leaves the bus and comes back as a new participant, without the names that were claimed.
    void reopen();
    /// Takes a well-known name. False where another program has it, or without a bus.
    bool claim(const QString &name);
    bool owns(const QString &name) const { return m_names.contains(name); }
    QDBusConnection connection() const { return m_connection; }
    bool isConnected() const { return m_connection.isConnected(); }

    /// The unique name of the program that owns `name`; empty where none does.
    QString ownerOf(const QString &name) const;

signals:
    void connected();
    /// The connection is gone, also where that is wanted to begin anew.
    void lost();
    /// The bus has ended it.
    void broken();

private slots:
    void handleDisconnected();

private:
    void keepTrying();
    void tryToConnect();
    void leave();

    Timers &m_timers;
    QDBusConnection m_connection;
    QStringList m_names;
    std::unique_ptr<RepeatingTimer> m_retryTimer; ///< while there is no connection
};

} // namespace glimmet
