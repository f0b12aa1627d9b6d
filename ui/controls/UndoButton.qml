import QtQuick
import Glimmet

// Puts back what was removed where it stands.
PlainButton {
    required property string subject

    focus: true
    text: "Undo"
    Accessible.name: Wording.undoing(Wording.removing(subject))
    // A double click on what removes ends here, and shall not put back what it removed.
    onDoubleClicked: {}
}
