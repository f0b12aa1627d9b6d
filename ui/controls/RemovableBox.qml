import QtQuick
import Glimmet

// An entry of a list, with a button of its own that removes it.
RoundedBox {
    id: root

    required property PlainButton removeButton

    readonly property bool hasKeyboard: removeButton.visualFocus

    signal removed

    function takeKeyboard() {
        removeButton.forceActiveFocus(Qt.TabFocusReason);
    }
}
