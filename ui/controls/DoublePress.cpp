#include "ui/controls/DoublePress.h"

#include <QGuiApplication>
#include <QPointerEvent>
#include <QStyleHints>

#include <cmath>
#include <utility>

namespace glimmet {

namespace {

bool isTouch(const QPointerEvent &event)
{
    return event.type() == QEvent::TouchBegin || event.type() == QEvent::TouchEnd;
}

bool isByMainButton(const QPointerEvent &event)
{
    return isTouch(event) || static_cast<const QMouseEvent &>(event).button() == Qt::LeftButton;
}

} // namespace

void DoublePress::setTarget(QQuickItem *target)
{
    if (m_target == target)
        return;
    m_target = target;
    connect(m_target, &QQuickItem::windowChanged, this, &DoublePress::watch);
    watch(m_target->window());
    emit targetChanged();
}

void DoublePress::watch(QQuickWindow *window)
{
    if (m_window)
        m_window->removeEventFilter(this);
    m_window = window;
    if (m_window)
        m_window->installEventFilter(this);
}

bool DoublePress::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
        return press(static_cast<QPointerEvent &>(*event));
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
        return release(static_cast<const QPointerEvent &>(*event));
    case QEvent::MouseButtonDblClick:
        return m_isSecondDown;
    default:
        return false;
    }
}

bool DoublePress::press(QPointerEvent &event)
{
    m_isSecondDown = isSecond(event);
    const auto met = std::exchange(m_met, std::nullopt);
    m_position = event.point(0).scenePosition();
    m_time = event.timestamp();
    if (m_isSecondDown)
        emit doubled(*met);
    return m_isSecondDown;
}

bool DoublePress::release(const QPointerEvent &event)
{
    // Who drags or flicks twice from one place does not press twice.
    if (!isNearFirst(event))
        m_met.reset();
    return std::exchange(m_isSecondDown, false);
}

bool DoublePress::isSecond(const QPointerEvent &event) const
{
    const auto interval = static_cast<quint64>(QGuiApplication::styleHints()->mouseDoubleClickInterval());
    return m_met && isByMainButton(event) && event.timestamp() - m_time < interval && isNearFirst(event);
}

bool DoublePress::isNearFirst(const QPointerEvent &event) const
{
    const QStyleHints &hints = *QGuiApplication::styleHints();
    const int distance = isTouch(event) ? hints.touchDoubleTapDistance() : hints.mouseDoubleClickDistance();
    const QPointF moved = event.points().first().scenePosition() - m_position;
    return std::abs(moved.x()) <= distance && std::abs(moved.y()) <= distance;
}

} // namespace glimmet
