#pragma once

#include <QObject>
#include <QQuickItem>

namespace glimmet {

/// Has a key press a control once, however long it is held. Repeated, it would press also what takes the
/// keyboard next: of a list, row after row would go.
class HeldKeyFilter : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The control.
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged REQUIRED)

public:
    using QObject::QObject;

    QQuickItem *target() const { return m_target; }
    void setTarget(QQuickItem *control);

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void targetChanged();

private:
    QQuickItem *m_target = nullptr;
};

} // namespace glimmet
