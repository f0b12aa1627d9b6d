#pragma once

#include <QObject>
#include <QQuickWindow>

namespace glimmet {

/// Tells how the pointer looks.
class PointerProbe : public QObject {
    Q_OBJECT

public:
    /// A value of Qt::CursorShape, as the window has it where the pointer is.
    Q_INVOKABLE static int shapeIn(const QQuickWindow *window) { return window->cursor().shape(); }
};

} // namespace glimmet
