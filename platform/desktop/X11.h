#pragma once

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

/// Whether a bar keeps other windows off its place. Where another screen lies above it must not: reservations
/// count from the upper edge of all screens together.
enum class Reserve { Space, Nothing };

/// Shows the window as a bar at the upper edge of its screen. `geometry`: the window's, in native pixels.
/// Call before it is shown.
void makeTopBar(const QWindow &window, const QRect &geometry, Reserve reserve);

/// Keeps the window out of task bars and pagers, above others and without the window manager's animations.
/// Call before it is shown.
void makeDropDown(const QWindow &window);

/// Gives the window the keyboard, also against a window manager's protection against stolen focus: the user
/// has just asked for it.
void giveFocus(const QWindow &window);

/// Shows only these native pixels of the window, which take the place of its mask, until it is given another
/// one.
void setShape(const QWindow &window, const QRegion &shape);

/// True where a compositor draws translucent windows.
bool isCompositing();

/// How large the root window is, in native pixels.
std::optional<QSize> rootSize();

/// Where the pointer is.
std::optional<QPoint> pointerPosition();

} // namespace glimmet::X11
