#pragma once

#include "platform/SteadyClock.h"
#include "platform/bus/TextSignal.h"
#include "platform/desktop/StatusNotifierTypes.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QPoint>

#include <optional>

namespace glimmet {

/// The menu-bar item as the StatusNotifierItem protocol
/// (https://www.freedesktop.org/wiki/Specifications/StatusNotifierItem/) shows it, with the XAyatanaLabel
/// extension for its text, at /StatusNotifierItem. It holds what hosts read and tells what they call. Its
/// menu is NotifierMenu's. Main thread.
class StatusNotifierItem final : public QDBusVirtualObject {
    Q_OBJECT

public:
    static const QString path;

    /// What a host makes of the item.
    enum class Presentation {
        Label, ///< text beside an icon: the icon is an empty one
        Menu, ///< the same, by a host that answers clicks with the item's menu only
        Icon, ///< a picture with a tooltip
    };

    /// `clock` outlives it.
    explicit StatusNotifierItem(const SteadyClock &clock, QObject *parent = nullptr);

    /// Puts the item on `connection`, where it stays as long as that lives. False where its place is taken.
    bool putOn(const QDBusConnection &connection);
    /// Lets go of a connection that is lost.
    void takeOff();

    /// The text beside the icon, sent to hosts only when it changes.
    void setLabel(const QString &label);
    /// Sends the text once more, for a host that is new.
    void announceLabel();
    void setPresentation(Presentation presentation);
    Presentation presentation() const { return m_presentation; }
    /// What hosts that show icons choose from, each in one of the sizes that they ask for.
    void setPictures(QList<NotifierPixmap> pictures);
    /// Plain text. Hosts look at it once they are told of it.
    void setToolTip(const QString &text) { m_toolTip = text; }
    void announceToolTip();
    /// A passive item is not shown, and its host hears nothing of its label.
    void setActive(bool active);
    /// Whether the host does anything with the label; one that does not is told of none.
    void setLabelHeard(bool heard) { m_isLabelHeard = heard; }
    /// Another program than the host hears of the label, also while the item is passive.
    void setFollowed(bool followed) { m_followed = followed; }

    QString introspect(const QString &objectPath) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

signals:
    /// The item was clicked, with any button that the host does not keep for the menu; hosts mean different
    /// places by the position, or none.
    void activated(QPoint position);
    /// The item was activated by a host that shows its menu.
    void activatedBesideMenu(QPoint position);
    /// A host looked at the item.
    void wasRead();

private:
    bool handleCall(const QDBusMessage &message);
    void sendLabel();
    bool handleProperties(const QDBusMessage &message, const QDBusConnection &connection);
    QVariantMap properties() const;
    void emitChange(const QString &signal, const QVariantList &arguments = {});

    QDBusConnection m_connection;
    TextSignal m_labelSignal;
    Stopwatch m_sinceQt; ///< was given anything to send
    QString m_label;
    QString m_toolTip;
    QList<NotifierPixmap> m_pictures{ emptyPixmap(1) };
    Presentation m_presentation = Presentation::Icon;
    bool m_active = true;
    bool m_isLabelHeard = true;
    bool m_followed = false;
};

} // namespace glimmet
