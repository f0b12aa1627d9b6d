#include "ui/controls/FieldAccessible.h"

#include "ui/controls/TextPieces.h"

#include <QCoreApplication>
#include <QInputMethodEvent>

namespace glimmet {

namespace {

/// A field's echo mode: the text as it is.
constexpr int shown = 0;

QRectF caretAt(QQuickItem &field, int position)
{
    QRectF caret;
    QMetaObject::invokeMethod(
        &field, "positionToRectangle", Q_RETURN_ARG(QRectF, caret), Q_ARG(int, position));
    return caret;
}

} // namespace

QAccessible::State FieldAccessible::state() const
{
    QAccessible::State state = ItemAccessible::state();
    state.focusable = true;
    state.focused = item().hasActiveFocus();
    state.editable = true;
    state.selectableText = true;
    state.passwordEdit = item().property("echoMode").toInt() != shown;
    return state;
}

QString FieldAccessible::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        // The toolkit keeps the name of a hidden text to itself.
        return item().property("name").toString();
    case QAccessible::Description:
        // The toolkit puts the sample in its place.
        return item().property("description").toString();
    case QAccessible::Value:
        return shownText();
    default:
        return ItemAccessible::text(kind);
    }
}

void FieldAccessible::setText(QAccessible::Text kind, const QString &text)
{
    if (kind == QAccessible::Value)
        replaceText(0, characterCount(), text);
}

void *FieldAccessible::interface_cast(QAccessible::InterfaceType type)
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

void FieldAccessible::selection(int index, int *start, int *end) const
{
    *start = index == 0 ? item().property("selectionStart").toInt() : 0;
    *end = index == 0 ? item().property("selectionEnd").toInt() : 0;
}

int FieldAccessible::selectionCount() const
{
    return item().property("selectionStart") == item().property("selectionEnd") ? 0 : 1;
}

void FieldAccessible::removeSelection(int)
{
    QMetaObject::invokeMethod(&item(), "deselect");
}

void FieldAccessible::setSelection(int, int start, int end)
{
    QMetaObject::invokeMethod(&item(), "select", Q_ARG(int, start), Q_ARG(int, end));
}

int FieldAccessible::cursorPosition() const
{
    return item().property("cursorPosition").toInt();
}

void FieldAccessible::setCursorPosition(int position)
{
    item().setProperty("cursorPosition", position);
}

QString FieldAccessible::text(int start, int end) const
{
    return shownText().mid(start, end - start);
}

QString FieldAccessible::textBeforeOffset(
    int offset, QAccessible::TextBoundaryType kind, int *start, int *end) const
{
    return piece(offset, -1, kind, start, end);
}

QString FieldAccessible::textAfterOffset(
    int offset, QAccessible::TextBoundaryType kind, int *start, int *end) const
{
    return piece(offset, 1, kind, start, end);
}

QString FieldAccessible::textAtOffset(
    int offset, QAccessible::TextBoundaryType kind, int *start, int *end) const
{
    return piece(offset, 0, kind, start, end);
}

/// An offset as assistive programs give it: two that no text has are the caret and the end.
int FieldAccessible::placeOf(int offset) const
{
    switch (offset) {
    case -1:
        return characterCount();
    case -2:
        return cursorPosition();
    default:
        return offset;
    }
}

QString FieldAccessible::piece(
    int offset, int further, QAccessible::TextBoundaryType kind, int *start, int *end) const
{
    const int place = placeOf(offset);
    const QList<TextPiece> pieces = piecesOf(shownText(), kind);
    int index = pieceAt(pieces, place);
    // Behind the last character there is none; the word, the sentence and the line are still those before it.
    if (index == pieces.size() && kind != QAccessible::CharBoundary)
        --index;
    const TextPiece found = pieces.value(index + further, TextPiece{ place, place });
    *start = found.start;
    *end = found.end;
    return text(found.start, found.end);
}

int FieldAccessible::characterCount() const
{
    return static_cast<int>(shownText().size());
}

QRect FieldAccessible::characterRect(int offset) const
{
    const QRectF left = caretAt(item(), offset);
    const QRectF right = caretAt(item(), offset + 1);
    const QPointF corner = item().mapToGlobal(left.topLeft());
    return { corner.toPoint(), QSizeF(right.x() - left.x(), left.height()).toSize() };
}

int FieldAccessible::offsetAtPoint(const QPoint &point) const
{
    const qreal x = item().mapFromGlobal(point).x();
    int offset = 0;
    while (offset < characterCount() && caretAt(item(), offset + 1).x() <= x)
        ++offset;
    return offset;
}

QString FieldAccessible::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

void FieldAccessible::replaceText(int start, int end, const QString &text)
{
    // As an input method does it: one edit, which can be undone.
    removeSelection(0);
    QInputMethodEvent edit;
    edit.setCommitString(text, start - cursorPosition(), end - start);
    QCoreApplication::sendEvent(&item(), &edit);
    // An input method writes where the keyboard is, and the toolkit shows the caret.
    if (!item().hasActiveFocus())
        item().setProperty("cursorVisible", false);
}

void FieldAccessible::doAction(const QString &action)
{
    if (action == setFocusAction())
        item().forceActiveFocus();
}

} // namespace glimmet
