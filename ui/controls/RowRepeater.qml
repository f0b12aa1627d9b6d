import QtQuick
import Glimmet

// The entries of a list. When one is removed, the keyboard stays near the one that went, or goes to
// `fallback` after the last one, instead of starting again from the panel's top.
Repeater {
    id: rows

    required property Item fallback

    function keepKeyboardNear(index: int) {
        if (count > 0)
            (itemAt(Math.min(index, count - 1)) as RemovableBox).takeKeyboard();
        else
            fallback.forceActiveFocus(Qt.TabFocusReason);
    }
}
