#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

namespace glimmet {

/// One screen in the two spaces that a window meets: Qt's logical pixels and the X server's native ones. Both
/// have the same origin; from there on, native positions are `scale` times the logical ones.
struct ScreenSpace {
    QRect geometry; ///< logical
    QRect available; ///< logical, without the bars at its edges
    double scale = 1;

    QRect nativeGeometry() const;
    QPoint toLogical(QPoint native) const;
    QRect toNative(const QRect &logical) const;
};

/// The screen with the room that a window manager means that tells of a desktop of the size `desktop` where
/// the root window has the size `root`. A screen whose room is all of it keeps that.
ScreenSpace withRoomInUnitsOf(ScreenSpace screen, QSize desktop, QSize root);

/// The screen with less room: without the bars along its upper and lower edge. `bars` are native. For a
/// window manager that does not tell of the room itself.
ScreenSpace withoutBars(ScreenSpace screen, const QList<QRect> &bars);

/// The screen that holds the native position, else the first one. `screens` is not empty.
const ScreenSpace &screenAt(const QList<ScreenSpace> &screens, QPoint native);

} // namespace glimmet
