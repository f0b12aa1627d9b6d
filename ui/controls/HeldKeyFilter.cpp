#include "ui/controls/HeldKeyFilter.h"

#include <QKeyEvent>

namespace glimmet {

namespace {

bool isPressing(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Delete;
}

/// Tells the repetitions of a key that is held. One for all controls, since one click may take the keyboard
/// from the one that it reaches to the next.
class HeldKey {
public:
    bool isRepeating(const QKeyEvent &event)
    {
        if (event.isAutoRepeat())
            return true;
        return event.type() == QEvent::KeyPress ? isRepeatingPress(event) : isRepeatingRelease(event);
    }

private:
    /// The toolkit does not know every repetition under X: it takes the release before a repeated press for a
    /// real one where the press has not arrived yet. Both are of the same time, as no hand does it.
    bool isRepeatingPress(const QKeyEvent &event)
    {
        const bool isOfHardware = event.nativeScanCode() != 0 && event.timestamp() != 0;
        m_isRepeated = isOfHardware && event.key() == m_key && event.timestamp() == m_released;
        return m_isRepeated;
    }

    bool isRepeatingRelease(const QKeyEvent &event)
    {
        const bool isOfRepetition = m_isRepeated && event.key() == m_key;
        m_isRepeated = false;
        m_key = event.key();
        m_released = event.timestamp();
        return isOfRepetition;
    }

    int m_key = 0; ///< that was released last
    quint64 m_released = 0; ///< when
    bool m_isRepeated = false; ///< the key that is down was not pressed by hand
};

HeldKey &heldKey()
{
    static HeldKey key;
    return key;
}

} // namespace

void HeldKeyFilter::setTarget(QQuickItem *control)
{
    if (m_target == control)
        return;
    m_target = control;
    m_target->installEventFilter(this);
    emit targetChanged();
}

bool HeldKeyFilter::eventFilter(QObject *, QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return false;
    const auto &keyEvent = *static_cast<QKeyEvent *>(event);
    return isPressing(keyEvent.key()) && heldKey().isRepeating(keyEvent);
}

} // namespace glimmet
