#include "platform/desktop/DesktopLook.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

DesktopSetting setting(const char *group, const char *key)
{
    return { QString::fromLatin1(group), QString::fromLatin1(key) };
}

const DesktopSetting colorScheme = setting("org.freedesktop.appearance", "color-scheme");
const DesktopSetting reducedMotion = setting("org.freedesktop.appearance", "reduced-motion");
const DesktopSetting contrast = setting("org.freedesktop.appearance", "contrast");
const DesktopSetting gnomeContrast = setting("org.gnome.desktop.a11y.interface", "high-contrast");
const DesktopSetting gnomeAnimations = setting("org.gnome.desktop.interface", "enable-animations");
const DesktopSetting kdeAnimationTime = setting("org.kde.kdeglobals.KDE", "AnimationDurationFactor");

bool reducesMotion(const DesktopSettings &settings)
{
    return desktopLook(settings, ColorScheme::Light).reducesMotion;
}

bool wantsContrast(const DesktopSettings &settings)
{
    return desktopLook(settings, ColorScheme::Light).wantsContrast;
}

TEST(DesktopLook, isThatOfThePaletteWhereNothingIsKnown)
{
    EXPECT_EQ(desktopLook({}, ColorScheme::Dark), (DesktopLook{ ColorScheme::Dark, false }));
    EXPECT_EQ(desktopLook({}, ColorScheme::Light), (DesktopLook{ ColorScheme::Light, false }));
}

TEST(DesktopLook, takesThePreferredScheme)
{
    EXPECT_EQ(desktopLook({ { colorScheme, 1U } }, ColorScheme::Light).scheme, ColorScheme::Dark);
    EXPECT_EQ(desktopLook({ { colorScheme, 2U } }, ColorScheme::Dark).scheme, ColorScheme::Light);
    EXPECT_EQ(desktopLook({ { colorScheme, 0U } }, ColorScheme::Dark).scheme, ColorScheme::Dark);
    EXPECT_EQ(desktopLook({ { colorScheme, 3U } }, ColorScheme::Dark).scheme, ColorScheme::Dark);
}

TEST(DesktopLook, reducesMotionWhereAnyDesktopAsksForIt)
{
    EXPECT_TRUE(reducesMotion({ { reducedMotion, 1U } }));
    EXPECT_TRUE(reducesMotion({ { gnomeAnimations, false } }));
    EXPECT_TRUE(reducesMotion({ { kdeAnimationTime, QStringLiteral("0") } }));
    EXPECT_TRUE(reducesMotion({ { gnomeAnimations, false }, { reducedMotion, 0U } }));
}

TEST(DesktopLook, movesWhereTheDesktopsDo)
{
    EXPECT_FALSE(reducesMotion({ { reducedMotion, 0U }, { gnomeAnimations, true } }));
    EXPECT_FALSE(reducesMotion({ { kdeAnimationTime, QStringLiteral("0.5") } }));
    EXPECT_FALSE(reducesMotion({ { kdeAnimationTime, QStringLiteral("fast") } }));
}

TEST(DesktopLook, raisesItsContrastWhereAnyDesktopAsksForIt)
{
    EXPECT_TRUE(wantsContrast({ { contrast, 1U } }));
    EXPECT_TRUE(wantsContrast({ { gnomeContrast, true } }));
    EXPECT_TRUE(wantsContrast({ { gnomeContrast, true }, { contrast, 0U } }));
}

TEST(DesktopLook, keepsItsContrastWhereNoneDoes)
{
    EXPECT_FALSE(wantsContrast({}));
    EXPECT_FALSE(wantsContrast({ { contrast, 0U }, { gnomeContrast, false } }));
    EXPECT_FALSE(wantsContrast({ { contrast, 2U } }));
}

TEST(DesktopLook, isReadFromGnomesListing)
{
    const DesktopSettings settings =
        settingsOfGnome("org.gnome.desktop.interface clock-format '24h'\n"
                        "org.gnome.desktop.interface color-scheme 'prefer-dark'\n"
                        "org.gnome.desktop.interface enable-animations false\n"
                        "org.gnome.desktop.a11y.interface high-contrast true\n");

    EXPECT_EQ(desktopLook(settings, ColorScheme::Light), (DesktopLook{ ColorScheme::Dark, true, true }));
}

TEST(DesktopLook, ofGnomesDefaultsHasNoPreference)
{
    const DesktopSettings settings =
        settingsOfGnome("org.gnome.desktop.interface color-scheme 'default'\n"
                        "org.gnome.desktop.interface enable-animations true\n"
                        "org.gnome.desktop.a11y.interface high-contrast false\n");

    EXPECT_FALSE(preferredScheme(settings).has_value());
    EXPECT_FALSE(reducesMotion(settings));
    EXPECT_FALSE(wantsContrast(settings));
}

TEST(DesktopLook, ofAnEmptyListingIsUnknown)
{
    EXPECT_TRUE(settingsOfGnome({}).isEmpty());
    EXPECT_TRUE(settingsOfGnome("No such schema “org.gnome.desktop.interface”\n").isEmpty());
}

} // namespace
} // namespace glimmet
