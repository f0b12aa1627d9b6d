#include "ui/controls/ItemAccessible.h"

namespace glimmet {

QAccessibleInterface *ItemAccessible::parent() const
{
    for (QQuickItem *ancestor = item().parentItem(); ancestor != nullptr; ancestor = ancestor->parentItem()) {
        if (QAccessibleInterface *found = QAccessible::queryAccessibleInterface(ancestor))
            return found;
    }
    return QAccessible::queryAccessibleInterface(item().window());
}

QRect ItemAccessible::rect() const
{
    const QPointF corner = item().mapToGlobal({ 0, 0 });
    return { corner.toPoint(), item().size().toSize() };
}

QAccessible::State ItemAccessible::state() const
{
    QAccessible::State state;
    state.focusable = true;
    state.focused = item().hasActiveFocus();
    state.disabled = !item().isEnabled();
    state.invisible = !item().isVisible();
    return state;
}

} // namespace glimmet
