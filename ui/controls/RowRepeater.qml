import QtQuick
import Glimmet

// The entries of a list. When one goes, the keyboard stays near it, where it can be put back after the last one, or
// goes to `fallback` where that is over, instead of starting again from the panel's top.
LazyFlow {
    id: rows

    required property Item fallback
    // What a screen reader calls the list.
    required property string name

    // What it says of the place of an entry that it cannot count, since not all are built.
    function positionOf(index: int): string {
        return isWhole ? "" : Wording.position(index + 1, count);
    }

    // To the entry that stands at `index`, or else to the next one, or the one before, that is in the list. Where none
    // is, to an offer in the same order.
    function keepKeyboardNear(index: int) {
        const near = nearest(index, false);
        const entry = itemAt(near >= 0 ? near : nearest(index, true)) as RemovableBox;
        if (entry !== null)
            entry.takeKeyboard();
        else
            fallback.forceActiveFocus(Qt.TabFocusReason);
    }

    // Where its rows can be edited.
    function edit(index: int) {
        (itemAt(index) as RemovableRow)?.edit();
    }

    // Shows where the entry at `index` is, if there is one.
    function pointAt(index: int) {
        (itemAt(index) as RemovableBox)?.point();
    }

    function nearest(index: int, isRemoved: bool): int {
        let before = -1;
        for (let i = 0; i < count; ++i) {
            // What was removed is built.
            const entry = builtItemAt(i) as RemovableBox;
            if ((entry?.isRemoved ?? false) !== isRemoved)
                continue;
            if (i >= index)
                return i;
            before = i;
        }
        return before;
    }

    // Whether something beside the row has the keyboard, and not only what is around the list.
    function isKeyboardBeside(row: Item): bool {
        const focused = Window.activeFocusItem;
        return focused !== null && !isWithin(focused, row) && !isWithin(row, focused);
    }

    function isWithin(item: Item, whole: Item): bool {
        while (item !== null && item !== whole)
            item = item.parent;
        return item !== null;
    }

    height: implicitHeight
    visible: count > 0
    Accessible.role: Accessible.List
    Accessible.name: name
    Accessible.description: Wording.entries(count)
    // A short one counts itself.
    Accessible.ignored: isWhole
    onItemRemoved: (index, item) => {
        // The row's own word may be behind while the keyboard goes from it to something else.
        if ((item as RemovableBox).hasKeyboard && !isKeyboardBeside(item))
            keepKeyboardNear(index);
    }
}
