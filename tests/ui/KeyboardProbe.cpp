#include "tests/ui/KeyboardProbe.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace glimmet {

namespace {

void send(QQuickWindow &window, QEvent::Type type, int key, bool isRepetition)
{
    QKeyEvent event(type, key, Qt::NoModifier, QString(), isRepetition);
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

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

void KeyboardProbe::hold(QQuickWindow *window, int key, int repetitions)
{
    send(*window, QEvent::KeyPress, key, false);
    for (int i = 0; i < repetitions; ++i) {
        send(*window, QEvent::KeyRelease, key, true);
        send(*window, QEvent::KeyPress, key, true);
    }
    send(*window, QEvent::KeyRelease, key, false);
}

void KeyboardProbe::handOn(QQuickWindow *window, int key)
{
    // The toolkit keeps the system's event back and then sends one of its own.
    hold(window, key, 0);
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
