#pragma once

#include "app/MenuBarHost.h"

#include <QRect>
#include <QSize>

#include <memory>

class QDBusServiceWatcher;

namespace glimmet {

class SessionBus;
class Timers;
class TopBarObject;

/// Where a panel drops down from a button: the middle of its lower edge, in native pixels of the root window.
/// `button` is in the coordinates of a shell whose screens together have the size `stage`, and the root
/// window the size `root`; where either is not known, one coordinate is one pixel.
QPoint nativeAnchor(const QRect &button, QSize stage, QSize root);

/// Shows the text in the bar of the desktop's own shell, GNOME's or Plasma's, by an extension of ours, which
/// is there while it owns the name me.kerno.glimmet.TopBar on the bus. Only the shell is believed.
class TopBarHost final : public MenuBarHost {
    Q_OBJECT

public:
    /// `bus` and `timers` outlive it.
    TopBarHost(SessionBus &bus, Timers &timers, QObject *parent = nullptr);
    ~TopBarHost() override;

    bool isAvailable() const override { return m_available; }
    QString place() const override { return QStringLiteral("a button of the shell"); }
    void setText(const QString &text) override;
    void setPanelOpen(bool isOpen) override;
    /// The extension shows the text for as long as it is there.
    void setShown(bool) override {}
    std::optional<QPoint> anchor() const override { return m_anchor; }

private:
    void handleConnected();
    void handleLost();
    void lookForExtension();
    void setAvailable(bool available);
    bool isShell(const QString &participant) const;

    SessionBus &m_bus;
    std::unique_ptr<TopBarObject> m_object;
    std::unique_ptr<QDBusServiceWatcher> m_watch;
    std::optional<QPoint> m_anchor;
    bool m_available = false;
};

} // namespace glimmet
