#include "tests/ui/AccessibleProbe.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QQuickWindow>

#include <algorithm>
#include <utility>

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

QAccessibleInterface *field(QQuickItem &root, const QString &name)
{
    for (QAccessibleInterface *control : controlsIn(root)) {
        if (control->role() == QAccessible::EditableText && control->text(QAccessible::Name) == name)
            return control;
    }
    return nullptr;
}

QStringList &eventTexts()
{
    static QStringList texts;
    return texts;
}

void recordText(QAccessibleEvent *event)
{
    if (event->type() == QAccessible::TextInserted)
        eventTexts().append(static_cast<QAccessibleTextInsertEvent *>(event)->textInserted());
    if (event->type() == QAccessible::TextRemoved)
        eventTexts().append(static_cast<QAccessibleTextRemoveEvent *>(event)->textRemoved());
    if (event->type() == QAccessible::TextUpdated)
        eventTexts().append(static_cast<QAccessibleTextUpdateEvent *>(event)->textInserted());
    if (event->type() == QAccessible::ValueChanged)
        eventTexts().append(static_cast<QAccessibleValueChangeEvent *>(event)->value().toString());
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

QString AccessibleProbe::shownText(QQuickItem *root, const QString &name)
{
    QAccessibleInterface *control = controlOf(*root, name);
    QAccessibleTextInterface *text = control == nullptr ? nullptr : control->textInterface();
    return text == nullptr ? QString() : text->text(0, text->characterCount());
}

QStringList AccessibleProbe::read(QQuickItem *root, const QString &name)
{
    QAccessibleInterface *found = field(*root, name);
    if (found == nullptr)
        return {};
    QStringList texts{ found->text(QAccessible::Value), found->text(QAccessible::Description) };
    if (QAccessibleTextInterface *text = found->textInterface()) {
        int start = 0;
        int end = 0;
        const int length = text->characterCount();
        texts.append(text->text(0, length));
        texts.append(text->textAtOffset(0, QAccessible::LineBoundary, &start, &end));
        texts.append(text->textAfterOffset(0, QAccessible::CharBoundary, &start, &end));
        texts.append(text->textBeforeOffset(length, QAccessible::WordBoundary, &start, &end));
    }
    return texts;
}

bool AccessibleProbe::isPassword(QQuickItem *root, const QString &name)
{
    const QAccessibleInterface *found = field(*root, name);
    return found != nullptr && found->state().passwordEdit;
}

bool AccessibleProbe::isEditable(QQuickItem *root, const QString &name)
{
    QAccessibleInterface *found = field(*root, name);
    return found != nullptr && found->editableTextInterface() != nullptr && found->textInterface() != nullptr;
}

bool AccessibleProbe::isInView(QQuickItem *root, const QString &name)
{
    const QAccessibleInterface *found = controlOf(*root, name);
    return found != nullptr && !found->state().offscreen && !found->state().invisible;
}

QStringList AccessibleProbe::actions(QQuickItem *root, const QString &name)
{
    QAccessibleInterface *found = controlOf(*root, name);
    QAccessibleActionInterface *offered = found == nullptr ? nullptr : found->actionInterface();
    return offered == nullptr ? QStringList() : offered->actionNames();
}

bool AccessibleProbe::isFocusable(QQuickItem *root, const QString &name)
{
    const QAccessibleInterface *found = controlOf(*root, name);
    return found != nullptr && found->state().focusable;
}

bool AccessibleProbe::isDisabled(QQuickItem *root, const QString &name)
{
    const QAccessibleInterface *found = controlOf(*root, name);
    return found != nullptr && found->state().disabled;
}

bool AccessibleProbe::isSelected(QQuickItem *root, const QString &name)
{
    const QAccessibleInterface *found = controlOf(*root, name);
    return found != nullptr && found->state().selectable && found->state().selected;
}

void AccessibleProbe::write(QQuickItem *root, const QString &name, const QString &text)
{
    QAccessibleInterface *found = field(*root, name);
    if (found == nullptr)
        return;
    if (QAccessibleEditableTextInterface *editor = found->editableTextInterface())
        editor->replaceText(0, found->textInterface()->characterCount(), text);
    else
        found->setText(QAccessible::Value, text);
}

void AccessibleProbe::insert(QQuickItem *root, const QString &name, int position, const QString &text)
{
    QAccessibleInterface *found = field(*root, name);
    if (found == nullptr)
        return;
    if (QAccessibleEditableTextInterface *editor = found->editableTextInterface())
        return editor->insertText(position, text);
    QString whole = found->text(QAccessible::Value);
    found->setText(QAccessible::Value, whole.insert(position, text));
}

QStringList AccessibleProbe::heard()
{
    QAccessible::installUpdateHandler(recordText);
    return std::exchange(eventTexts(), {});
}

} // namespace glimmet
