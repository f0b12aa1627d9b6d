#include "app/CompositionWatch.h"

#include <QVariant>
#include <QWindow>

#include <utility>

namespace glimmet {

CompositionWatch::CompositionWatch(const QWindow &window, QObject *parent)
    : QObject(parent)
{
    connect(&window, &QWindow::focusObjectChanged, this, &CompositionWatch::followField);
    followField(window.focusObject());
}

void CompositionWatch::followField(QObject *field)
{
    // Not everything of the item's: the window is one, too, as long as no other has the keyboard.
    QObject::disconnect(m_following);
    m_field = field;
    // The toolkit's type of a text field is its own affair; other items do not have the signal.
    if (m_field && m_field->metaObject()->indexOfSignal("inputMethodComposingChanged()") >= 0)
        m_following = connect(m_field, SIGNAL(inputMethodComposingChanged()), this, SLOT(readField()));
    readField();
}

void CompositionWatch::readField()
{
    const bool isComposing = m_field && m_field->property("inputMethodComposing").toBool();
    if (m_isComposing && !isComposing)
        emit ending();
    if (std::exchange(m_isComposing, isComposing) != isComposing)
        emit changed();
}

} // namespace glimmet
