#include "ui/controls/ButtonAccessible.h"

#include <QQmlContext>
#include <QQmlProperty>

namespace glimmet {

QVariant ButtonAccessible::told(const char *property) const
{
    const QString name = QStringLiteral("Accessible.") + QLatin1String(property);
    return QQmlProperty::read(&item(), name, qmlContext(&item()));
}

QAccessible::State ButtonAccessible::state() const
{
    QAccessible::State state = ItemAccessible::state();
    state.pressed = item().property("down").toBool();
    state.selectable = told("selectable").toBool();
    state.selected = told("selected").toBool();
    return state;
}

QString ButtonAccessible::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return told("name").toString();
    case QAccessible::Description:
        return told("description").toString();
    default:
        return {};
    }
}

void *ButtonAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

void ButtonAccessible::doAction(const QString &action)
{
    if (!item().isEnabled())
        return;
    if (action == pressAction())
        QMetaObject::invokeMethod(&item(), "clicked");
    else if (action == setFocusAction())
        item().forceActiveFocus(Qt::TabFocusReason);
}

} // namespace glimmet
