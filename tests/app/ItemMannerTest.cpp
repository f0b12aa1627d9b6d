#include "app/ItemManner.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using enum StatusNotifierItem::Presentation;

ItemManner of(const char *program, const QByteArrayList &desktops = {})
{
    return mannerOf({ program, false }, desktops);
}

TEST(ItemManner, isAMenuInGnomesShellAndALabelInMate)
{
    EXPECT_EQ(mannerOf({ "gnome-shell", true }, { "UBUNTU", "GNOME" }).face.presentation, Menu);
    EXPECT_EQ(of("mate-panel", { "MATE" }).face.presentation, Label);
    EXPECT_EQ(of("some-panel").face.presentation, Icon);
}

TEST(ItemManner, sparesLabelsThePanelsThatKnowNone)
{
    for (const char *program : { "kded5", "kded6", "lxqt-panel", "xapp-sn-watcher", "waybar", "swaybar",
             "panel-6-systra", "panel-12-sys", "wrapper-2.0" })
        EXPECT_FALSE(of(program).face.hearsLabels) << program;
    for (const char *program : { "", "gnome-shell", "mate-panel", "some-panel", "panel-6-clock" })
        EXPECT_TRUE(of(program).face.hearsLabels) << program;
}

TEST(ItemManner, isTheTextAsAPictureInWaybarAndCinnamon)
{
    EXPECT_TRUE(of("waybar", { "SWAY" }).face.takesWidePictures);
    EXPECT_TRUE(of("xapp-sn-watcher", { "X-CINNAMON" }).face.takesWidePictures);
    EXPECT_FALSE(of("swaybar", { "SWAY" }).face.takesWidePictures);
    EXPECT_FALSE(of("xfce4-panel", { "XFCE" }).face.takesWidePictures);
}

TEST(ItemManner, isASymbolAloneInTraysOfPlasmaLxqtAndSwayWhateverTheDesktopIsCalled)
{
    for (const char *program : { "kded5", "kded6", "lxqt-panel", "swaybar" })
        EXPECT_FALSE(of(program, { "I3" }).isTextShown) << program;
    for (const char *desktop : { "KDE", "LXQT" })
        EXPECT_FALSE(of("", { desktop }).isTextShown) << desktop;
    for (const char *program : { "", "waybar", "mate-panel" })
        EXPECT_TRUE(of(program, { "SWAY" }).isTextShown) << program;
}

TEST(ItemManner, isDrawnForTheBarsThatAreDarkByThemselves)
{
    EXPECT_TRUE(of("waybar").face.isBarDark);
    EXPECT_TRUE(of("swaybar").face.isBarDark);
    EXPECT_TRUE(of("panel-6-systra", { "XFCE" }).face.isBarDark);
    EXPECT_TRUE(of("", { "X-CINNAMON" }).face.isBarDark);
    EXPECT_FALSE(of("mate-panel", { "MATE" }).face.isBarDark);
}

} // namespace
} // namespace glimmet
