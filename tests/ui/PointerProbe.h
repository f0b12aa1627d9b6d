#pragma once

#include <QObject>
#include <QQuickWindow>

namespace glimmet {

/// Tells how the pointer looks, and clicks where it is, whatever has moved there.
class PointerProbe : public QObject {
    Q_OBJECT

public:
    /// A value of Qt::CursorShape, as the window has it where the pointer is.
    Q_INVOKABLE static int shapeIn(const QQuickWindow *window) { return window->cursor().shape(); }
    /// A click at a place of the window, as the system tells it.
    Q_INVOKABLE static void click(QQuickWindow *window, const QPointF &place);
    /// Another one, so soon after the last that the two are a double click.
    Q_INVOKABLE static void clickAgain(QQuickWindow *window, const QPointF &place);
};

} // namespace glimmet
