#include "ui/controls/SecretAccessible.h"

#include <QCoreApplication>
#include <QInputMethodEvent>

namespace glimmet {

namespace {

QRectF caretAt(QQuickItem &field, int position)
{
    QRectF caret;
    QMetaObject::invokeMethod(
        &field, "positionToRectangle", Q_RETURN_ARG(QRectF, caret), Q_ARG(int, position));
    return caret;
}

} // namespace

QAccessible::State SecretAccessible::state() const
{
    QAccessible::State state = ItemAccessible::state();
    state.editable = true;
    state.selectableText = true;
    state.passwordEdit = item().property("isRevealed") != true;
    return state;
}

QString SecretAccessible::text(QAccessible::Text kind) const
{
    if (kind == QAccessible::Name)
        return item().property("name").toString();
    return kind == QAccessible::Value ? shownText() : QString();
}

void SecretAccessible::setText(QAccessible::Text kind, const QString &text)
{
    if (kind == QAccessible::Value)
        replaceText(0, characterCount(), text);
}

void *SecretAccessible::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface *>(this);
    case QAccessible::EditableTextInterface:
        return static_cast<QAccessibleEditableTextInterface *>(this);
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface *>(this);
    default:
        return nullptr;
    }
}

void SecretAccessible::selection(int index, int *start, int *end) const
{
    *start = index == 0 ? item().property("selectionStart").toInt() : 0;
    *end = index == 0 ? item().property("selectionEnd").toInt() : 0;
}

int SecretAccessible::selectionCount() const
{
    return item().property("selectionStart") == item().property("selectionEnd") ? 0 : 1;
}

void SecretAccessible::removeSelection(int)
{
    QMetaObject::invokeMethod(&item(), "deselect");
}

void SecretAccessible::setSelection(int, int start, int end)
{
    QMetaObject::invokeMethod(&item(), "select", Q_ARG(int, start), Q_ARG(int, end));
}

int SecretAccessible::cursorPosition() const
{
    return item().property("cursorPosition").toInt();
}

void SecretAccessible::setCursorPosition(int position)
{
    item().setProperty("cursorPosition", position);
}

QString SecretAccessible::text(int start, int end) const
{
    return shownText().mid(start, end - start);
}

int SecretAccessible::characterCount() const
{
    return static_cast<int>(shownText().size());
}

QRect SecretAccessible::characterRect(int offset) const
{
    const QRectF left = caretAt(item(), offset);
    const QRectF right = caretAt(item(), offset + 1);
    const QPointF corner = item().mapToGlobal(left.topLeft());
    return { corner.toPoint(), QSizeF(right.x() - left.x(), left.height()).toSize() };
}

int SecretAccessible::offsetAtPoint(const QPoint &point) const
{
    const qreal x = item().mapFromGlobal(point).x();
    int offset = 0;
    while (offset < characterCount() && caretAt(item(), offset + 1).x() <= x)
        ++offset;
    return offset;
}

QString SecretAccessible::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

void SecretAccessible::replaceText(int start, int end, const QString &text)
{
    // As an input method does it: one edit, which can be undone.
    removeSelection(0);
    QInputMethodEvent edit;
    edit.setCommitString(text, start - cursorPosition(), end - start);
    QCoreApplication::sendEvent(&item(), &edit);
}

void SecretAccessible::doAction(const QString &action)
{
    if (action == setFocusAction())
        item().forceActiveFocus();
}

} // namespace glimmet
