import QtQuick
import Glimmet

// Choices of which one is chosen, by whatever they are laid out in. The Tab key stops at them once, at the one that is
// chosen; from there arrows go on, and Space or Return chooses.
Item {
    id: group

    // What a screen reader says for all of them.
    required property string name
    // How many stand side by side, where they stand in several lines; 0 where there is one line.
    property int columns: 0

    property var members: []
    property Item focused: null
    readonly property Item stop: focused ?? chosen ?? (members.length > 0 ? members[0] : null)
    property Item chosen: null

    // How far a key leads in the order of the choices; 0 for any other key.
    function distance(key: int): int {
        switch (key) {
        case Qt.Key_Left:
            return -1;
        case Qt.Key_Right:
            return 1;
        case Qt.Key_Up:
            return -(columns || 1);
        case Qt.Key_Down:
            return columns || 1;
        default:
            return 0;
        }
    }

    implicitWidth: childrenRect.width
    implicitHeight: childrenRect.height

    Accessible.role: Accessible.Grouping
    Accessible.name: name
    Accessible.ignored: !(parent?.enabled ?? true)

    Keys.onPressed: event => {
        const step = distance(event.key);
        const from = members.indexOf(focused);
        if (step === 0 || from < 0)
            return;
        event.accepted = true;
        members[from + step]?.forceActiveFocus(Qt.TabFocusReason);
    }
}
