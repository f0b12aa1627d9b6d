import QtQuick

// What an entry of a list is edited with, in its row.
FocusScope {
    required property BorderedField firstField
    // Scrolled into view as a whole.
    readonly property bool revealedWhole: true

    // Everything is entered.
    signal finished
    // What is entered shall count.
    signal taken

    function begin() {
        firstField.forceActiveFocus(Qt.TabFocusReason);
        firstField.selectAll();
    }
}
