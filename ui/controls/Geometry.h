#pragma once

#include <QObject>
#include <QQuickItem>
#include <QRegion>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// The panel's arithmetic. Lengths are logical pixels.
class Geometry : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    /// The scale at which a text of `naturalWidth` fits into `width`: never above 1, and never below 0.4,
    /// where it is cut instead.
    Q_INVOKABLE static qreal fittingScale(qreal naturalWidth, qreal width);

    /// Where a view of `viewHeight` that is scrolled to `offset` must scroll to show `item` of its `content`
    /// whole; `offset` itself where the item is elsewhere or visible already.
    Q_INVOKABLE static qreal offsetRevealing(
        QQuickItem *item, QQuickItem *content, qreal offset, qreal viewHeight);

    /// The same for a stretch from `top` to `bottom`. What is higher than the view shows its top.
    static qreal offsetRevealing(qreal top, qreal bottom, qreal offset, qreal viewHeight);

    /// The item around `item`, or `item` itself, that asks by a property `revealedWhole` to be scrolled into
    /// view as a whole with whatever in it has the keyboard; null where there is none.
    Q_INVOKABLE static QQuickItem *wholeAround(QQuickItem *item);

    /// The pixels of a window with rounded corners: in each row those whose edges are nearest to the curve.
    static QRegion roundedRegion(const QSize &size, qreal radius);
};

} // namespace glimmet
