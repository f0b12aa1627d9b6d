#include "tests/ui/KeyboardProbe.h"

#include <QCoreApplication>
#include <QInputMethodEvent>

namespace glimmet {

void KeyboardProbe::compose(QQuickItem *field, const QString &text)
{
    QInputMethodEvent event(text, {});
    QCoreApplication::sendEvent(field, &event);
}

void KeyboardProbe::commit(QQuickItem *field, const QString &text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(field, &event);
}

} // namespace glimmet
