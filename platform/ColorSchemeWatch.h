#pragma once

#include "platform/ColorScheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <memory>
#include <optional>

class QProcess;

namespace glimmet {

/// Follows the desktop's setting for light or dark while the program runs: the settings portal
/// (https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Settings.html), else GNOME's
/// own setting, else the lightness of the application's palette, which Qt takes from the other desktops. Main
/// thread.
class ColorSchemeWatch : public QObject {
    Q_OBJECT

public:
    explicit ColorSchemeWatch(QObject *parent = nullptr);
    ~ColorSchemeWatch() override;

    ColorScheme scheme() const;
    /// Begins to follow the setting on `bus`; again after each new connection.
    void follow(QDBusConnection bus);

signals:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void handlePortalSetting(const QDBusMessage &change);
    void readDesktopSetting();

private:
    void readPortal(const QDBusConnection &bus);
    void finishReading();
    void setPreference(std::optional<ColorScheme> preference);

    std::optional<ColorScheme> m_preference;
    bool m_hasPortal = false;
    std::unique_ptr<QProcess> m_reader;
    bool m_isReadingStale = false;
};

} // namespace glimmet
