#include "platform/desktop/DesktopLook.h"

#include <QByteArrayList>

namespace glimmet {
namespace {

const DesktopSetting colorScheme{ QStringLiteral("org.freedesktop.appearance"),
    QStringLiteral("color-scheme") };
const DesktopSetting reducedMotion{ QStringLiteral("org.freedesktop.appearance"),
    QStringLiteral("reduced-motion") };
const DesktopSetting gnomeAnimations{ QStringLiteral("org.gnome.desktop.interface"),
    QStringLiteral("enable-animations") };
/// The portal's number: 1 for more contrast, 0 for no preference.
const DesktopSetting contrast{ QStringLiteral("org.freedesktop.appearance"), QStringLiteral("contrast") };
const DesktopSetting gnomeContrast{ QStringLiteral("org.gnome.desktop.a11y.interface"),
    QStringLiteral("high-contrast") };
const DesktopSetting kdeAnimationTime{ QStringLiteral("org.kde.kdeglobals.KDE"),
    QStringLiteral("AnimationDurationFactor") };

/// The portal's numbers: 1 prefers dark, 2 prefers light, 0 has no preference.
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

bool reducesMotion(const DesktopSettings &settings)
{
    // KDE's factor is a text; only its least one switches animations off.
    bool isNumber = false;
    const double factor = settings.value(kdeAnimationTime).toString().toDouble(&isNumber);
    return settings.value(reducedMotion).toUInt() == 1 || !settings.value(gnomeAnimations, true).toBool()
        || (isNumber && factor <= 0);
}

bool wantsContrast(const DesktopSettings &settings)
{
    return settings.value(contrast).toUInt() == 1 || settings.value(gnomeContrast).toBool();
}

uint schemeOfGnome(const QByteArray &value)
{
    if (value == "'prefer-dark'")
        return prefersDark;
    return value == "'prefer-light'" ? prefersLight : 0;
}

} // namespace

QList<DesktopSetting> lookSettings()
{
    return { colorScheme, reducedMotion, gnomeAnimations, kdeAnimationTime, contrast, gnomeContrast };
}

std::optional<ColorScheme> preferredScheme(const DesktopSettings &settings)
{
    switch (settings.value(colorScheme).toUInt()) {
    case prefersDark:
        return ColorScheme::Dark;
    case prefersLight:
        return ColorScheme::Light;
    default:
        return std::nullopt;
    }
}

DesktopLook desktopLook(const DesktopSettings &settings, ColorScheme palette)
{
    return { preferredScheme(settings).value_or(palette), reducesMotion(settings), wantsContrast(settings) };
}

QStringList schemasOfGnome()
{
    return { gnomeAnimations.group, gnomeContrast.group };
}

DesktopSettings settingsOfGnome(const QByteArray &listing)
{
    DesktopSettings settings;
    for (const QByteArray &line : listing.split('\n')) {
        const QByteArrayList words = line.trimmed().split(' ');
        const QByteArray key = words.value(1);
        const QByteArray value = words.value(2);
        if (key == "color-scheme")
            settings.insert(colorScheme, schemeOfGnome(value));
        else if (key == "enable-animations")
            settings.insert(gnomeAnimations, value != "false");
        else if (key == "high-contrast")
            settings.insert(gnomeContrast, value == "true");
    }
    return settings;
}

} // namespace glimmet
