#include "ui/controls/ControlAccessible.h"

namespace glimmet {

QAccessible::State ControlAccessible::state() const
{
    QAccessible::State state = ItemAccessible::state();
    state.focusable = true;
    state.focused = item().hasActiveFocus();
    state.pressed = item().property("down").toBool();
    state.checkable = isCheckable();
    state.checked = isCheckable() && item().property("checked").toBool();
    return state;
}

void *ControlAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList ControlAccessible::actionNames() const
{
    return { ownAction(), setFocusAction() };
}

void ControlAccessible::doAction(const QString &action)
{
    if (!item().isEnabled())
        return;
    if (action == ownAction())
        QMetaObject::invokeMethod(&item(), isCheckable() ? "press" : "clicked");
    else if (action == setFocusAction())
        item().forceActiveFocus(Qt::TabFocusReason);
}

} // namespace glimmet
