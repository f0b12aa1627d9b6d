#pragma once

#include "platform/desktop/ColorScheme.h"

#include <QHash>
#include <QString>
#include <QVariant>

#include <optional>

namespace glimmet {

/// How the desktop's user wants programs to look.
struct DesktopLook {
    ColorScheme scheme = ColorScheme::Light;
    bool reducesMotion = false; ///< nothing shall move for show
    bool wantsContrast = false; ///< texts and edges shall stand out more

    friend bool operator==(const DesktopLook &, const DesktopLook &) = default;
};

/// One setting of the settings portal
/// (https://flatpak.github.io/xdg-desktop-portal/docs/doc-org.freedesktop.portal.Settings.html).
struct DesktopSetting {
    QString group;
    QString key;

    friend bool operator==(const DesktopSetting &, const DesktopSetting &) = default;
    friend size_t qHash(const DesktopSetting &setting, size_t seed = 0)
    {
        return qHashMulti(seed, setting.group, setting.key);
    }
};

/// What is known of the settings; one that a desktop does not have is absent.
using DesktopSettings = QHash<DesktopSetting, QVariant>;

/// The settings that say how programs shall look: those of every desktop, of GNOME and of KDE.
QList<DesktopSetting> lookSettings();

/// What the settings say; `palette` is the scheme where they have no preference.
DesktopLook desktopLook(const DesktopSettings &settings, ColorScheme palette);

/// The scheme that the settings prefer, if any.
std::optional<ColorScheme> preferredScheme(const DesktopSettings &settings);

/// The schemas in which GNOME keeps the same settings, and these from what `gsettings list-recursively`
/// prints of them.
QStringList schemasOfGnome();
DesktopSettings settingsOfGnome(const QByteArray &listing);

} // namespace glimmet
