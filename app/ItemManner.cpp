#include "app/ItemManner.h"

namespace glimmet {
namespace {

using enum StatusNotifierItem::Presentation;

const QByteArray waybar = QByteArrayLiteral("waybar");
const QByteArray swaybar = QByteArrayLiteral("swaybar");

StatusNotifierItem::Presentation presentationOf(const ItemWatcher &watcher, const QByteArrayList &desktops)
{
    if (watcher.isShell)
        return Menu;
    return desktops.contains("MATE") ? Label : Icon;
}

/// Those of Plasma, LXQt, Cinnamon, Waybar and sway know of no labels, and not XFCE's, whose plugins are
/// named by their place in the panel up to its version 4.18, and by what they run in from 4.20 on.
bool hearsLabels(const QByteArray &program)
{
    static const QByteArrayList deaf{ "kded5", "kded6", "lxqt-panel", "xapp-sn-watcher", waybar, swaybar,
        "wrapper-2.0" };
    return !deaf.contains(program) && !(program.startsWith("panel-") && program.contains("-sys"));
}

/// Of all that an item has to show these take the square picture; swaybar has not even a tooltip, those of
/// the others are seen by who looks for them.
bool showsSymbolAlone(const QByteArray &program, const QByteArrayList &desktops)
{
    static const QByteArrayList programs{ swaybar, "kded5", "kded6", "lxqt-panel" };
    return programs.contains(program) || desktops.contains("KDE") || desktops.contains("LXQT");
}

} // namespace

ItemManner mannerOf(const ItemWatcher &watcher, const QByteArrayList &desktops)
{
    const bool takesWidePictures = desktops.contains("X-CINNAMON") || watcher.program == waybar;
    // These bars are dark unless their users say otherwise.
    const bool isBarDark = takesWidePictures || watcher.program == swaybar || desktops.contains("XFCE");
    return { { presentationOf(watcher, desktops), hearsLabels(watcher.program), takesWidePictures,
                 isBarDark },
        !showsSymbolAlone(watcher.program, desktops) };
}

} // namespace glimmet
