#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>

namespace glimmet {

/// A real session bus of the test's own, at one address for its whole life, also over a restart. It starts no
/// services, or those in a folder of the test's, but never the machine's.
class PrivateBus {
public:
    explicit PrivateBus(const QString &servicesFolder = {});
    ~PrivateBus();
    Q_DISABLE_COPY_MOVE(PrivateBus)

    void start();
    void kill();
    /// Has it take messages without an answer, until it goes on.
    void halt() const;
    void goOn() const;
    /// A further connection to it, as another program has one.
    QDBusConnection peer(const QString &name) const;

private:
    void configure(const QString &servicesFolder) const;
    QString configurationFile() const;

    QTemporaryDir m_folder;
    QString m_address;
    QProcess m_daemon;
};

/// Takes what is at `path` and below off the connection of that name, and then lets go of the connection. A
/// call that comes between letting go and the end of its object crashes Qt, which then answers it over what
/// is gone.
void leave(const QString &name, const QString &path);

/// Lets events happen until `condition` holds; false after ten seconds.
bool waitFor(const std::function<bool()> &condition);

/// Lets everything happen that has been said on the bus, and what follows from it.
void settle(const QDBusConnection &connection);

/// The answer to a call, while this process goes on serving its own objects.
QDBusMessage call(const QDBusConnection &connection, const QString &path, const QString &interface,
    const QString &method, const QVariantList &arguments = {},
    const QString &service = QStringLiteral("me.kerno.glimmet"));

} // namespace glimmet
