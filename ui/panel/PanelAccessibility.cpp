#include "ui/panel/PanelAccessibility.h"

#include "ui/controls/ButtonAccessible.h"
#include "ui/controls/SecretAccessible.h"

namespace glimmet {

namespace {

/// Whether the engine made the object from this type's file.
bool isOf(const QString &className, const QString &type)
{
    return className.startsWith(type + QStringLiteral("_QMLTYPE"));
}

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    auto *item = qobject_cast<QQuickItem *>(object);
    if (item == nullptr)
        return nullptr;
    if (isOf(className, QStringLiteral("SecretField")))
        return new SecretAccessible(*item);
    if (isOf(className, QStringLiteral("PlainButton")) || isOf(className, QStringLiteral("CalendarDay")))
        return new ButtonAccessible(*item);
    return nullptr;
}

} // namespace

void installPanelAccessibility()
{
    QAccessible::installFactory(makeInterface);
}

} // namespace glimmet
