#pragma once

#include <QObject>
#include <QPointF>
#include <QQuickItem>
#include <QRectF>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// Where the pointer meets a control that is drawn small: the middle of its area, at least 24 logical pixels
/// each way (WCAG 2.2, success criterion 2.5.8).
class TargetMask : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *target MEMBER m_target NOTIFY targetChanged)

public:
    using QObject::QObject;

    /// What an item of that size is hit in, in its own coordinates.
    static QRectF areaOf(const QSizeF &size);

    /// As Qt Quick asks a containment mask.
    Q_INVOKABLE bool contains(const QPointF &point) const;

signals:
    void targetChanged();

private:
    QQuickItem *m_target = nullptr;
};

} // namespace glimmet
