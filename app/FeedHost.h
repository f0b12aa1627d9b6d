#pragma once

#include "app/MenuBarHost.h"

#include <memory>

class QDBusServiceWatcher;

namespace glimmet {

class SessionBus;

/// A bar that reads the text from `glimmet-feed`, which owns a name on the session bus meanwhile. It takes
/// the text from the item by itself, and tells of clicks by the item as well.
class FeedHost final : public MenuBarHost {
    Q_OBJECT

public:
    /// What a feed is called on the bus.
    static const QString feedName;

    /// `bus` outlives it.
    explicit FeedHost(SessionBus &bus, QObject *parent = nullptr);
    ~FeedHost() override;

    /// True while a feed is read.
    bool isAvailable() const override { return m_isRead; }
    QString place() const override { return QStringLiteral("a feed"); }
    void setText(const QString &) override {}
    void setShown(bool) override {}
    /// The pointer's: a bar does not tell where in it the text is.
    std::optional<QPoint> anchor() const override;

private:
    void follow();
    void setRead(bool isRead);

    SessionBus &m_bus;
    std::unique_ptr<QDBusServiceWatcher> m_watch;
    bool m_isRead = false;
};

} // namespace glimmet
