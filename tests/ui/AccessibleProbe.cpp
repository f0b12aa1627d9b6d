#include "tests/ui/AccessibleProbe.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QQuickWindow>

#include <algorithm>

namespace glimmet {

namespace {

QString lineOf(QAccessibleInterface &control)
{
    const QString role =
        QString::fromLatin1(QMetaEnum::fromType<QAccessible::Role>().valueToKey(control.role()));
    QString line = role + u' ' + control.text(QAccessible::Name);
    const QAccessible::State state = control.state();
    if (state.checkable)
        line += state.checked ? QStringLiteral(" [x]") : QStringLiteral(" [ ]");
    return line;
}

void collect(QAccessibleInterface &control, QList<QAccessibleInterface *> &found)
{
    found.append(&control);
    for (int i = 0; i < control.childCount(); ++i) {
        if (QAccessibleInterface *child = control.child(i))
            collect(*child, found);
    }
}

bool isIn(const QQuickItem &root, const QAccessibleInterface &control)
{
    auto *item = qobject_cast<QQuickItem *>(control.object());
    return item != nullptr && (item == &root || root.isAncestorOf(item));
}

/// What is told of in `root`: as a screen reader does, the search starts at the window.
QList<QAccessibleInterface *> controlsIn(QQuickItem &root)
{
    QList<QAccessibleInterface *> controls;
    collect(*QAccessible::queryAccessibleInterface(root.window()), controls);
    controls.removeIf([&root](const QAccessibleInterface *control) { return !isIn(root, *control); });
    return controls;
}

QAccessibleInterface *controlOf(QQuickItem &root, const QString &name)
{
    const QList<QAccessibleInterface *> controls = controlsIn(root);
    const auto found = std::find_if(controls.begin(), controls.end(),
        [&name](const QAccessibleInterface *control) { return control->text(QAccessible::Name) == name; });
    return found == controls.end() ? nullptr : *found;
}

QAccessibleValueInterface *valueOf(QQuickItem &root, const QString &name)
{
    QAccessibleInterface *control = controlOf(root, name);
    return control == nullptr ? nullptr : control->valueInterface();
}

bool actOn(QQuickItem &root, const QString &name, const QString &action)
{
    for (QAccessibleInterface *control : controlsIn(root)) {
        QAccessibleActionInterface *actions = control->actionInterface();
        if (control->text(QAccessible::Name) != name || actions == nullptr)
            continue;
        if (!actions->actionNames().contains(action))
            continue;
        actions->doAction(action);
        return true;
    }
    return false;
}

} // namespace

QStringList AccessibleProbe::told(QQuickItem *root)
{
    QStringList lines;
    for (QAccessibleInterface *control : controlsIn(*root))
        lines.append(lineOf(*control));
    return lines;
}

bool AccessibleProbe::press(QQuickItem *root, const QString &name)
{
    return actOn(*root, name, QAccessibleActionInterface::pressAction());
}

bool AccessibleProbe::toggle(QQuickItem *root, const QString &name)
{
    return actOn(*root, name, QAccessibleActionInterface::toggleAction());
}

bool AccessibleProbe::act(QQuickItem *root, const QString &name, const QString &action)
{
    return actOn(*root, name, action);
}

QList<int> AccessibleProbe::numbers(QQuickItem *root, const QString &name)
{
    QAccessibleValueInterface *value = valueOf(*root, name);
    if (value == nullptr)
        return {};
    return { value->minimumValue().toInt(), value->currentValue().toInt(), value->maximumValue().toInt() };
}

bool AccessibleProbe::setNumber(QQuickItem *root, const QString &name, int number)
{
    QAccessibleValueInterface *value = valueOf(*root, name);
    if (value == nullptr)
        return false;
    value->setCurrentValue(number);
    return true;
}

QString AccessibleProbe::description(QQuickItem *root, const QString &name)
{
    QAccessibleInterface *control = controlOf(*root, name);
    return control == nullptr ? QString() : control->text(QAccessible::Description);
}

} // namespace glimmet
