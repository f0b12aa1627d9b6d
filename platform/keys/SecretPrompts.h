#pragma once

#include <QDBusObjectPath>
#include <QObject>
#include <QSet>
#include <QString>

#include <functional>

namespace glimmet {

class SecretServiceLink;

/// The dialogs that the Secret Service shows for this program, each from its start to its end. None is ever
/// taken back: gnome-keyring 42 aborts at that. Main thread.
class SecretPrompts : public QObject {
    Q_OBJECT

public:
    /// `link` outlives this.
    explicit SecretPrompts(SecretServiceLink &link, QObject *parent = nullptr);

    /// Tells the X11 window that a dialog shall belong to; 0 for none.
    void setParentWindow(std::function<quint32()> parent) { m_parentWindow = std::move(parent); }
    /// Lets the service ask the user, now or later.
    void start(const QDBusObjectPath &prompt);
    bool isAnyUp() const { return !m_up.isEmpty(); }
    /// The service, or the bus, is gone, and the dialogs with it.
    void forgetAll();

signals:
    void isAnyUpChanged();
    /// The user did not agree, or could not be asked.
    void dismissed();

private:
    void end(const QString &prompt, bool isDismissed);

    SecretServiceLink &m_link;
    std::function<quint32()> m_parentWindow = [] { return 0; };
    QSet<QString> m_up;
};

} // namespace glimmet
