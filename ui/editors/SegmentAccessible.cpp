#include "ui/editors/SegmentAccessible.h"

namespace glimmet {

QAccessible::State SegmentAccessible::state() const
{
    QAccessible::State state = ItemAccessible::state();
    state.focusable = true;
    state.focused = item().hasActiveFocus();
    // Orca 48 says what it read seconds ago of a text that it is not to expect to change.
    state.editable = true;
    return state;
}

QString SegmentAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? shownText() : ItemAccessible::text(kind);
}

void *SegmentAccessible::interface_cast(QAccessible::InterfaceType type)
{
    switch (type) {
    case QAccessible::ValueInterface:
        return static_cast<QAccessibleValueInterface *>(this);
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface *>(this);
    case QAccessible::ActionInterface:
        return static_cast<QAccessibleActionInterface *>(this);
    default:
        return nullptr;
    }
}

QString SegmentAccessible::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return {};
}

void SegmentAccessible::doAction(const QString &action)
{
    if (action == increaseAction())
        step(1);
    else if (action == decreaseAction())
        step(-1);
    else if (action == pressAction())
        item().forceActiveFocus(Qt::TabFocusReason);
}

void SegmentAccessible::step(int steps)
{
    QMetaObject::invokeMethod(&item(), "stepped", Q_ARG(int, steps));
}

} // namespace glimmet
