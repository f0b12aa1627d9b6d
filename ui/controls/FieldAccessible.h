#pragma once

#include "ui/controls/ItemAccessible.h"

namespace glimmet {

/// What assistive programs are told of a field. The toolkit's own answer lets them write to none, and gives
/// them a hidden text itself; this one gives dots, until the field shows its text.
class FieldAccessible final : public ItemAccessible,
                              public QAccessibleTextInterface,
                              public QAccessibleEditableTextInterface,
                              public QAccessibleActionInterface {
public:
    using ItemAccessible::ItemAccessible;

    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString &text) override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    QString textBeforeOffset(
        int offset, QAccessible::TextBoundaryType kind, int *start, int *end) const override;
    QString textAfterOffset(
        int offset, QAccessible::TextBoundaryType kind, int *start, int *end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType kind, int *start, int *end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int *start, int *end) const override;

    void deleteText(int start, int end) override { replaceText(start, end, QString()); }
    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString &text) override;

    QStringList actionNames() const override { return { setFocusAction() }; }
    void doAction(const QString &action) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    int placeOf(int offset) const;
    /// The piece so many after the one at `offset`, which is at the cursor for -2 and at the text's end for
    /// -1.
    QString piece(int offset, int further, QAccessible::TextBoundaryType kind, int *start, int *end) const;
    /// The text as it is seen: dots, or what they stand for.
    QString shownText() const { return item().property("displayText").toString(); }
};

} // namespace glimmet
