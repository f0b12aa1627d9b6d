import QtQuick
import Glimmet

// The entries of a list. When one goes, the keyboard stays near it, or goes to `fallback` after the last one,
// instead of starting again from the panel's top.
Repeater {
    id: rows

    required property Item fallback

    // To the entry that stands at `index`, or else to the next one, or the one before, that is in the list.
    function keepKeyboardNear(index: int) {
        const near = nearest(index, count, 1) ?? nearest(Math.min(index, count) - 1, -1, -1);
        if (near !== null)
            near.takeKeyboard();
        else
            fallback.forceActiveFocus(Qt.TabFocusReason);
    }

    // Shows where the entry at `index` is, if there is one.
    function pointAt(index: int) {
        (itemAt(index) as RemovableBox)?.point();
    }

    function nearest(first: int, end: int, step: int): RemovableBox {
        for (let i = first; step * (end - i) > 0; i += step) {
            const entry = itemAt(i) as RemovableBox;
            if (entry !== null && !entry.isRemoved)
                return entry;
        }
        return null;
    }

    onItemRemoved: (index, item) => {
        if ((item as RemovableBox).hasKeyboard)
            keepKeyboardNear(index);
    }
}
