import QtQuick
import Glimmet

// The entries of a list. When one goes, the keyboard stays near it, where it can be put back after the last one, or
// goes to `fallback` where that is over, instead of starting again from the panel's top.
Repeater {
    id: rows

    required property Item fallback

    // To the entry that stands at `index`, or else to the next one, or the one before, that is in the list. Where none
    // is, to an offer in the same order.
    function keepKeyboardNear(index: int) {
        const near = nearest(index, false) ?? nearest(index, true);
        if (near !== null)
            near.takeKeyboard();
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

    function nearest(index: int, isRemoved: bool): RemovableBox {
        let before = null;
        for (let i = 0; i < count; ++i) {
            const entry = itemAt(i) as RemovableBox;
            if (entry === null || entry.isRemoved !== isRemoved)
                continue;
            if (i >= index)
                return entry;
            before = entry;
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

    onItemRemoved: (index, item) => {
        // The row's own word may be behind while the keyboard goes from it to something else.
        if ((item as RemovableBox).hasKeyboard && !isKeyboardBeside(item))
            keepKeyboardNear(index);
    }
}
