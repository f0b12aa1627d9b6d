#pragma once

#include "ui/controls/ItemAccessible.h"

namespace glimmet {

/// What assistive programs are told of a field of a date or time: beside its number, which the toolkit's own
/// answer has alone, the text that is seen. Without it they would say 0 for AM, and 5 for 05.
class SegmentAccessible final : public ItemAccessible,
                                public QAccessibleValueInterface,
                                public QAccessibleTextInterface,
                                public QAccessibleActionInterface {
public:
    using ItemAccessible::ItemAccessible;

    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QVariant currentValue() const override { return item().property("value"); }
    void setCurrentValue(const QVariant &value) override { item().setProperty("value", value); }
    QVariant minimumValue() const override { return item().property("lowest"); }
    QVariant maximumValue() const override { return item().property("highest"); }
    QVariant minimumStepSize() const override { return 1; }

    // The text is read alone: nothing of it can be selected.
    void selection(int, int *start, int *end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override { return shownText().mid(start, end - start); }
    int characterCount() const override { return static_cast<int>(shownText().size()); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint &) const override { return 0; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int *start, int *end) const override;

    QStringList actionNames() const override { return { increaseAction(), decreaseAction(), pressAction() }; }
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QString shownText() const { return item().property("text").toString(); }
    void step(int steps);
};

} // namespace glimmet
