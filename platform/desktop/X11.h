#pragma once

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QRegion>
#include <QSize>
#include <QWindow>

#include <optional>

/// What a menu-bar item needs of an X server (also XWayland) and its window manager beyond Qt, by the
/// Extended Window Manager Hints (https://specifications.freedesktop.org/wm-spec/). Positions are native
/// pixels of the root window. Every call does nothing, or finds nothing, where the platform is not X11. Main
/// thread.
namespace glimmet::X11 {

/// Has the window stand like a bar, above others, on every desktop. Call before it is shown.
void makeTopBar(const QWindow &window);

/// Whether Qt speaks to a Wayland compositor itself, for want of an X server: then it is the compositor that
/// places windows, and rounds off what is translucent.
bool isMissing();

/// Whether the window manager is i3, which gives a bar the whole width and tells of no work area.
bool isI3();

/// Where i3's bars are; none elsewhere, where the window manager tells of the room beside them.
QList<QRect> bars();

/// Whether the X server stands in a Wayland compositor of the wlroots kind, which centres, tiles or ignores
/// what a window asks for, and does not tell where the pointer is.
bool isWlroots();

/// Whether a window is the window manager's to place, or goes past it.
enum class Placing { Managed, Unmanaged };

/// Keeps the window out of task bars and pagers, above others and without the window manager's animations.
/// Call before it is shown.
void makeDropDown(const QWindow &window, Placing placing);

/// Gives the window the keyboard, also against a window manager's protection against stolen focus: the user
/// has just asked for it. What is typed goes to an unmanaged one by a grab, since the compositor gives it no
/// focus of the X server's and would take back any that it takes.
void giveFocus(const QWindow &window, Placing placing);

/// Ends that grab.
void releaseKeyboard();

/// Shows only these native pixels of the window, which take the place of its mask, until it is given another
/// one.
void setShape(const QWindow &window, const QRegion &shape);

/// True where a compositor draws translucent windows.
bool isCompositing();

/// How large the root window is, in native pixels.
std::optional<QSize> rootSize();

/// A text that the window manager has put on the root window, at most 256 bytes; empty where there is none.
QByteArray rootText(const QByteArray &name);

/// How large the window manager takes the desktop for, in the units in which it tells of the room beside its
/// bars (_NET_DESKTOP_GEOMETRY, https://specifications.freedesktop.org/wm-spec/latest/): KWin under Wayland
/// tells of both in its own logical pixels, also where the root window has more.
std::optional<QSize> desktopSize();

/// Where the pointer is.
std::optional<QPoint> pointerPosition();

} // namespace glimmet::X11
