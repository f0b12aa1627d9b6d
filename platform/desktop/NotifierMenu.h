#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace glimmet {

/// The item's menu with its two entries, spoken as com.canonical.dbusmenu at a path of its own. Most hosts
/// keep it for the right button; one that answers every click by it means a click by opening it. Main thread.
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
    /// The host is about to open the menu; of such a host `opened` may not come.
    void asked();
    /// The host closed the menu, and with it the grab that kept the keyboard for it.
    void closed();
    void openChosen();
    void quitChosen();

private:
    void handleEvent(int entry, const QString &event);

    Words m_words;
};

} // namespace glimmet
