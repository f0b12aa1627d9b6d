#pragma once

#include "platform/SingleShot.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QRect>
#include <QSize>
#include <QString>

#include <functional>
#include <vector>

namespace glimmet {

/// What the program and its extension of the desktop's shell say to each other: me.kerno.glimmet.TopBar1 at
/// /me/kerno/glimmet/TopBar. The shell reads the text and whether the panel is open, and tells where its
/// button is and what is pressed. Main thread.
class TopBarObject final : public QDBusVirtualObject {
    Q_OBJECT

public:
    static const QString path;
    static const QString interface;

    /// Whether the participant of this unique name may call methods; the others may only read.
    using Permission = std::function<bool(const QString &caller)>;

    /// `timers` outlives it.
    TopBarObject(Timers &timers, Permission permission, QObject *parent = nullptr);

    void putOn(const QDBusConnection &connection);
    void takeOff();

    void setText(const QString &text);
    void setPanelOpen(bool isOpen);
    /// Whether changes are told. Off at first, since hardly any desktop has somebody who listens.
    void setTelling(bool isTelling) { m_isTelling = isTelling; }

    QString introspect(const QString &objectPath) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

signals:
    /// Where the button is, in the coordinates of a shell whose screens together have this size.
    void placed(const QRect &button, QSize stage);
    /// The button was pressed, after its place was told.
    void toggled();
    /// Something of the shell's own was pressed beside the button.
    void pressedElsewhere();

private:
    QVariantMap properties() const;
    bool handleCall(const QDBusMessage &message);
    void tell(const QString &property, const QVariant &value);
    bool keepWaiting(const QDBusMessage &message);
    void answerWaiting();
    QDBusMessage stateFor(const QDBusMessage &message) const;

    Permission m_permission;
    QDBusConnection m_connection;
    QString m_text;
    bool m_isPanelOpen = false;
    bool m_isTelling = false;
    std::vector<QDBusMessage> m_waiting;
    SingleShot m_patience;
};

} // namespace glimmet
