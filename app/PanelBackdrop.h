#pragma once

#include <QObject>
#include <QPoint>
#include <QRect>

namespace glimmet {

/// What lies behind the open panel on a desktop where the X server is told neither where the pointer is nor
/// what is pressed beside the panel. Main thread.
class PanelBackdrop : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Presses in `place` go to what is there; all others come here. In native pixels; empty: none is let
    /// through.
    virtual void letThrough(const QRect &place) = 0;
    /// Whether all presses go to what is under them, and none come here.
    virtual void setOpen(bool isOpen) = 0;

signals:
    /// Where the pointer is, in native pixels, or would be beside a bar under it.
    void pointerFound(QPoint besideBar);
    void pressed();
    /// One of the outputs is gone, with whatever was on it. Qt does not always tell of that as of a screen.
    void outputGone();
    /// Another window has got the keyboard, also one of which the X server knows nothing.
    void keyboardTaken();
};

} // namespace glimmet
