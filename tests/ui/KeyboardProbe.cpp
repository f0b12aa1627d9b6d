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

QStringList KeyboardProbe::surroundings(QQuickItem *field)
{
    QInputMethodQueryEvent query(
        Qt::ImSurroundingText | Qt::ImTextBeforeCursor | Qt::ImTextAfterCursor | Qt::ImCurrentSelection);
    QCoreApplication::sendEvent(field, &query);
    return { query.value(Qt::ImSurroundingText).toString(), query.value(Qt::ImTextBeforeCursor).toString(),
        query.value(Qt::ImTextAfterCursor).toString(), query.value(Qt::ImCurrentSelection).toString() };
}

} // namespace glimmet
