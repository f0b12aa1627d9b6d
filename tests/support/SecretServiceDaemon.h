#pragma once

#include "platform/keys/SecretServiceTypes.h"
#include "tests/support/PrivateBus.h"

#include <QProcess>
#include <QTemporaryDir>

namespace glimmet {

/// An item as another program sees it.
struct StoredItem {
    QString label;
    SecretAttributes attributes;
    QByteArray value;
    QString contentType;
};

/// A real gnome-keyring on a bus of the test's own, with a home of its own. Its calls run no event loop.
class SecretServiceDaemon {
public:
    enum class Keyring { Unlocked, None };
    /// Whether the bus starts it when it is asked for, as a desktop's does; it is then locked.
    enum class Activation { Off, On };
    static constexpr const char *password = "open sesame";

    /// The bus alone; `start` brings the daemon.
    explicit SecretServiceDaemon(Activation activation = Activation::Off);
    ~SecretServiceDaemon();
    Q_DISABLE_COPY_MOVE(SecretServiceDaemon)

    /// `prompter`: the unique name of who shows its prompts; without one they end as cancelled.
    void start(Keyring keyring = Keyring::Unlocked, const QString &prompter = {});
    /// Ends it in the middle of whatever it is doing.
    void kill();
    /// Has it take messages without an answer, until it goes on.
    void halt() const;
    void goOn() const;
    bool isRunning() const;
    /// 0 where it does not run.
    pid_t processId() const;

    void lock() const;
    void unlock() const;
    void makeDefaultCollection() const;

    /// What another program does.
    void put(const SecretAttributes &attributes, const QByteArray &value) const;
    QList<StoredItem> items(const SecretAttributes &attributes) const;

    PrivateBus &bus() { return m_bus; }

private:
    QVariantList ask(const QString &path, const QString &interface, const QString &method,
        const QVariantList &arguments = {}) const;
    QString makeServicesFolder(Activation activation) const;
    void connectPeer();
    QDBusObjectPath openSession() const;
    SecretOfItem secret(const QByteArray &value) const;
    void signalProcess(int signal) const;

    QTemporaryDir m_home;
    PrivateBus m_bus;
    QProcess m_daemon;
    QDBusConnection m_peer;
    int m_peerCount = 0;
};

/// The attributes by which the program finds its item.
SecretAttributes attributesOf(const QString &account);

} // namespace glimmet
