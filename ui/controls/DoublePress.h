#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

#include <optional>

class QPointerEvent;

namespace glimmet {

/// Has a double click mean what its first press met. That may be elsewhere by the second press: what loses
/// the keyboard by the first one closes, and a list moves up. The second press reaches nothing else then.
class DoublePress : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// In whose window presses are looked at.
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged REQUIRED)

public:
    using QObject::QObject;

    QQuickItem *target() const { return m_target; }
    void setTarget(QQuickItem *target);

    /// The press that is under way met what is called `key`.
    Q_INVOKABLE void meet(const QString &key) { m_met = key; }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void targetChanged();
    /// By mouse or by touch.
    void doubled(const QString &key);

private:
    void watch(QQuickWindow *window);
    /// Each tells whether that was all there is to do.
    bool press(QPointerEvent &event);
    bool release(const QPointerEvent &event);
    bool isSecond(const QPointerEvent &event) const;
    bool isNearFirst(const QPointerEvent &event) const;

    QQuickItem *m_target = nullptr;
    QPointer<QQuickWindow> m_window;
    std::optional<QString> m_met; ///< by the last press
    QPointF m_position; ///< of that press, in the window
    quint64 m_time = 0; ///< of that press, in milliseconds
    bool m_isSecondDown = false;
};

} // namespace glimmet
