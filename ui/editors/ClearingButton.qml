import QtQuick
import Glimmet

// Removes all of a list, and then for a while puts it back.
PlainButton {
    id: button

    required property Undo undo
    required property string clearingText
    // What takes the keyboard where there is nothing more to do.
    required property Item fallback

    readonly property bool undoes: undo.canUndoClearing

    text: undoes ? "Undo" : clearingText
    font.pixelSize: Theme.smallSize
    ink: undoes ? Theme.ink : Theme.faintText
    fill: Theme.clear
    // Without paddings, that its text ends where the rows do, the ring would touch it.
    leftInset: -1
    rightInset: -1
    enabled: undoes || !undo.isEmpty
    Accessible.name: undoes ? Wording.undoing(clearingText) : text
    onClicked: {
        // What is being edited counts before all of it goes.
        if (!activeFocus)
            forceActiveFocus(Qt.MouseFocusReason);
        if (undoes)
            undo.undoClearing();
        else
            undo.clear();
    }
    // The second click would meet what the first has made of the button.
    onDoubleClicked: {}
    onIsOutOfUseChanged: {
        if (isOutOfUse && focus)
            fallback.forceActiveFocus(Qt.TabFocusReason);
    }
}
