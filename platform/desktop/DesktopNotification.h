#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>

namespace glimmet {

/// What a notification says and offers.
struct NotificationContent {
    struct Action {
        QString key;
        QString words;
    };

    QString summary;
    QString body;
    QList<Action> actions;
};

/// A notification of the program's on the desktop
/// (https://specifications.freedesktop.org/notification-spec/), at most one at a time. It goes with this
/// object. Main thread.
class DesktopNotification final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~DesktopNotification() override;

    /// Shows this one instead of the last. `sessionBus` is the one that there is at the moment.
    void show(const QDBusConnection &sessionBus, const NotificationContent &content);
    /// Takes the notification away, if it is there.
    void close();

signals:
    /// The user chose one of the actions, and the notification is gone.
    void chosen(const QString &key);
    /// The desktop did not show it, so that the user cannot have seen it.
    void failed();

private slots:
    void handleAction(const QDBusMessage &signal);

private:
    void send(const QString &owner, const QVariantList &content);
    void handleAnswer(const QDBusPendingReply<uint> &id, const QString &owner, bool isWanted);
    void handleShown(uint id, const QString &owner, bool isWanted);
    void takeAway(const QString &owner, uint id);

    QDBusConnection m_bus{ QString() };
    QString m_owner; ///< the unique name of who shows it
    uint m_id = 0; ///< 0 while there is none
    quint64 m_showing = 0; ///< counts up with each closing: what was sent before is not wanted any more
};

} // namespace glimmet
