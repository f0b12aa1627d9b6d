#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace glimmet {

/// Which part of an item is in view: in what scrolls around it, or else in its window. Lengths are logical
/// pixels.
class VisiblePart : public QObject {
    Q_OBJECT

public:
    /// `item` outlives it.
    explicit VisiblePart(const QQuickItem &item)
        : m_item(item)
    {
    }

    /// The item came to a window, or leaves it where that is null.
    void enter(QQuickWindow *window);

    /// The view in the item's own coordinates, also beyond its edges; empty where there is none.
    QRectF area() const;
    /// Scrolls so much further, where something scrolls. What is moving by itself ends.
    void scrollBy(qreal distance);

signals:
    /// The view and the item moved against each other, or the view has another size. Before the frame where
    /// the page is scrolled, else at its end.
    void moved();

private slots:
    void compare();

private:
    void follow(QQuickItem *view);

    const QQuickItem &m_item;
    QPointer<QQuickWindow> m_window;
    QPointer<QQuickItem> m_view;
    QRectF m_known; ///< the area as it was told last
};

} // namespace glimmet
