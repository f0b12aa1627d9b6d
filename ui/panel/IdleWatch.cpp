#include "ui/panel/IdleWatch.h"

#include <QEvent>

namespace glimmet {
namespace {

bool isUse(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
        return true;
    default:
        return false;
    }
}

} // namespace

IdleWatch::IdleWatch(QObject &window, std::chrono::milliseconds patience)
    : QObject(&window)
{
    m_patience.setSingleShot(true);
    m_patience.setTimerType(Qt::VeryCoarseTimer);
    m_patience.callOnTimeout(this, &IdleWatch::changed);
    m_patience.start(patience);
    window.installEventFilter(this);
}

bool IdleWatch::eventFilter(QObject *, QEvent *event)
{
    if (isUse(event->type())) {
        const bool wasIdle = isIdle();
        m_patience.start();
        if (wasIdle)
            emit changed();
    }
    return false;
}

} // namespace glimmet
