#include "ui/controls/ItemAccessible.h"

#include <QQmlContext>
#include <QQmlProperty>

namespace glimmet {
namespace {

QRectF areaInScene(const QQuickItem &item)
{
    return item.mapRectToScene(QRectF(QPointF(), item.size()));
}

/// Whether what clips it shows nothing of it.
bool isScrolledAway(const QQuickItem &item)
{
    QRectF seen = areaInScene(item);
    for (const QQuickItem *around = item.parentItem(); around != nullptr; around = around->parentItem()) {
        if (around->clip())
            seen &= areaInScene(*around);
    }
    return seen.isEmpty();
}

} // namespace

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

QAccessible::Role ItemAccessible::role() const
{
    return static_cast<QAccessible::Role>(told("role").toInt());
}

QAccessible::State ItemAccessible::state() const
{
    QAccessible::State state;
    state.disabled = !item().isEnabled();
    state.invisible = !item().isVisible();
    state.offscreen = isScrolledAway(item());
    state.selectable = told("selectable").toBool();
    state.selected = told("selected").toBool();
    state.focusable = told("focusable").toBool();
    state.focused = state.focusable && item().hasActiveFocus();
    return state;
}

QString ItemAccessible::text(QAccessible::Text kind) const
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

QVariant ItemAccessible::told(const char *property) const
{
    // The toolkit asks once more when an item goes, at whose end the engine does not know it any longer.
    QQmlContext *context = qmlContext(&item());
    if (context == nullptr || !context->isValid())
        return {};
    const QString name = QStringLiteral("Accessible.") + QLatin1String(property);
    return QQmlProperty::read(&item(), name, context);
}

} // namespace glimmet
