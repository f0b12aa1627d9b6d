#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace glimmet {

/// The item's menu, spoken as com.canonical.dbusmenu at a path of its own, for hosts that answer a click by a
/// menu only. That the menu opens is the click; its two entries serve where a host keeps it open. Main
/// thread.
class NotifierMenu final : public QDBusVirtualObject {
    Q_OBJECT

public:
    static const QString path;

    /// What its two entries say.
    struct Words {
        QString open;
        QString quit;
    };
    explicit NotifierMenu(Words words, QObject *parent = nullptr);

    /// Puts the menu on `connection`. False where its place is taken.
    bool putOn(const QDBusConnection &connection);

    QString introspect(const QString &objectPath) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

signals:
    /// The host built its menu, which it does only for an item that it shows.
    void wasRead();
    /// The host opened the menu.
    void opened();
    /// The host closed the menu, and with it the grab that kept the keyboard for it.
    void closed();
    void openChosen();
    void quitChosen();

private:
    void handleEvent(int entry, const QString &event);

    Words m_words;
};

} // namespace glimmet
