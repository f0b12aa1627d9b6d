import QtQuick
import QtQuick.Templates as T
import Glimmet

// A day of a calendar. Of all days only the one under the cursor is a stop of the Tab key.
T.AbstractButton {
    id: day

    required property string label
    required property string name
    required property bool isInMonth
    required property bool isOffered
    required property bool isToday
    required property bool isChosen
    required property bool isCursor

    readonly property color ink: isChosen ? Theme.background
        : isToday ? Theme.accent
        : isInMonth ? Theme.ink
        : Theme.softText

    text: label
    implicitHeight: 28
    enabled: isOffered
    hoverEnabled: true
    // The keyboard leaves after the cursor did.
    focusPolicy: isCursor || activeFocus ? Qt.TabFocus : Qt.NoFocus
    opacity: enabled ? (pressed ? Theme.pressedOpacity : 1) : Theme.withheldOpacity

    Accessible.role: Accessible.Button
    Accessible.ignored: !(parent?.enabled ?? true)
    Accessible.name: name
    Accessible.selectable: true
    Accessible.selected: isChosen
    // In words too: of a button no screen reader says that it is selected.
    Accessible.description: Wording.sentences([isToday ? "Today" : "", isChosen ? "Selected" : ""])
    Keys.onReturnPressed: day.clicked()
    Keys.onEnterPressed: day.clicked()

    HeldKeyFilter {
        target: day
    }

    background: RoundedBox {
        margin: 1
        radius: Theme.buttonRadius
        color: Theme.answering(day.isChosen ? Theme.ink : Theme.clear, day.hovered, day.pressed)

        FocusRing {
            anchors.margins: 0
            cornerRadius: Theme.buttonRadius - gap
            visible: day.visualFocus
        }
    }
    contentItem: InkText {
        text: day.label
        color: day.ink
        font.pixelSize: Theme.fieldSize
        font.weight: day.isToday || day.isChosen ? Theme.semibold : Theme.regular
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
