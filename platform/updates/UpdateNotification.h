#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QObject>
#include <QString>
#include <QVariantList>

namespace glimmet {

/// Tells the user by the desktop's notifications
/// (https://specifications.freedesktop.org/notification-spec/) that there is an update, once a version. Where
/// nobody shows notifications, nothing happens, and the next time counts. Main thread.
class UpdateNotification final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~UpdateNotification() override;

    /// `sessionBus` is the one that there is at the moment.
    void show(const QDBusConnection &sessionBus, const QString &installedVersion, const QString &newVersion);
    /// Takes the notification away, if it is there.
    void close();

signals:
    void installChosen();

private slots:
    void handleAction(const QDBusMessage &signal);

private:
    void listen();
    void send(const QString &owner, const QVariantList &content);
    void handleAnswer(const QDBusPendingReply<uint> &id, const QString &owner, bool isWanted);
    void handleShown(uint id, const QString &owner, bool isWanted);
    void takeAway(const QString &owner, uint id);

    QDBusConnection m_bus{ QString() };
    QString m_lastVersion;
    QString m_owner; ///< the unique name of who shows it
    uint m_id = 0; ///< 0 while there is none
    quint64 m_showing = 0; ///< counts up with each closing: what was sent before is not wanted any more
};

} // namespace glimmet
