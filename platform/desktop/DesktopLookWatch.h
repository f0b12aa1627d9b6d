#pragma once

#include "platform/desktop/DesktopLook.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <memory>

class QProcess;

namespace glimmet {

/// Follows how the desktop wants programs to look while the program runs: the settings portal, else GNOME's
/// own settings; where neither prefers light or dark, the lightness of the application's palette, which Qt
/// takes from the other desktops. Main thread.
class DesktopLookWatch : public QObject {
    Q_OBJECT

public:
    explicit DesktopLookWatch(QObject *parent = nullptr);
    ~DesktopLookWatch() override;

    DesktopLook look() const;
    /// Begins to follow the settings on `bus`; again after each new connection.
    void follow(const QDBusConnection &bus);

signals:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void handlePortalSetting(const QDBusMessage &change);
    void readDesktopSettings();

private:
    void readPortal(const QDBusConnection &bus, const DesktopSetting &setting);
    /// Reads these schemas of GNOME's one after the other.
    void readSchemas(const QStringList &schemas);
    void finishReading();
    void setSettings(const DesktopSettings &settings);

    DesktopSettings m_settings;
    bool m_hasPortal = false;
    std::unique_ptr<QProcess> m_reader;
    QByteArray m_listing; ///< what it has read so far
    bool m_isReadingStale = false;
};

} // namespace glimmet
