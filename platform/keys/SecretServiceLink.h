#pragma once

#include "platform/keys/CallBudget.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>

#include <optional>

namespace glimmet {

class SessionBus;

/// The way to the Secret Service (https://specifications.freedesktop.org/secret-service/): a connection of
/// its own to the user's bus, the program that serves the name, and a session with it. In the session secrets
/// pass as they are: they stay on the local socket.
///
/// The connection is not the program's shared one, since that leaves the bus and comes back where the menu
/// bar needs it, and the service closes sessions and prompts of who leaves. Main thread.
class SecretServiceLink : public QObject {
    Q_OBJECT

public:
    /// `bus` tells whether there is a bus at all, and outlives the link.
    explicit SecretServiceLink(const SessionBus &bus, QObject *parent = nullptr);
    ~SecretServiceLink() override;

    /// Makes the way as far as it is not there yet; a service that does not run is started.
    bool open(CallBudget::Call &call);
    /// Only the connection, which waits for the bus alone.
    bool connectToBus(std::chrono::milliseconds timeout);
    /// Goes away; the next opening is a fresh one.
    void close();

    bool isOpen() const { return !m_session.path().isEmpty(); }
    QDBusObjectPath session() const { return m_session; }
    QDBusConnection connection() const { return m_connection; }
    /// The unique name of the program that this link was opened to; empty before.
    QString owner() const { return m_owner; }
    /// A call of the program that this link was opened to.
    QDBusMessage method(const QString &path, const QString &interface, const QString &name) const;

    /// The arguments of the answer to `message`; none where it does not come in time, which the call then
    /// knows, is an error or has another signature. With no time left nothing is sent.
    std::optional<QVariantList> ask(
        const QDBusMessage &message, const QString &signature, CallBudget::Call &call) const;
    /// The same with a time of its own.
    std::optional<QVariantList> ask(const QDBusMessage &message, const QString &signature,
        CallBudget::Call &call, std::chrono::milliseconds patience) const;

signals:
    /// The service appeared, or something in it changed: what could not be read may be readable now.
    void changed();
    /// One of the service's dialogs has ended.
    void promptCompleted(const QString &prompt, bool isDismissed);
    /// The way is gone, and with it everything that was under way.
    void lost();

private slots:
    void handleOwner(const QDBusMessage &signal);
    void handlePrompt(const QDBusMessage &completed);

private:
    bool findService(CallBudget::Call &call);
    bool openSession(CallBudget::Call &call);
    void listen();

    const SessionBus &m_bus;
    QDBusConnection m_connection;
    QString m_owner;
    QDBusObjectPath m_session;
};

} // namespace glimmet
