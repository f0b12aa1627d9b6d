import QtQuick
import QtQuick.Templates as T
import Glimmet

// One of several to choose from, filled with ink once it is chosen. A tap counts also on what is chosen already.
T.RadioButton {
    id: choice

    required property string label
    property string symbol
    required property bool selected

    property color restingSymbol: Theme.choiceInk
    property color restingLabel: Theme.choiceInk
    property color restingBorder: Theme.clear
    property real cornerRadius: Theme.buttonRadius
    property int duration: Theme.chipDuration

    readonly property ChoiceGroup group: groupAround(parent)

    signal tapped

    function groupAround(item: Item): ChoiceGroup {
        while (item && !(item instanceof ChoiceGroup))
            item = item.parent;
        return item as ChoiceGroup;
    }

    property color symbolColor: selected ? Theme.background : restingSymbol
    property color labelColor: selected ? Theme.background : restingLabel

    // What an assistive program may ask for at any time.
    function press() {
        if (enabled)
            tapped();
    }

    text: label
    checked: selected
    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding + rightPadding
    implicitHeight: Math.ceil(implicitContentHeight) + topPadding + bottomPadding
    focusPolicy: !group || group.stop === choice ? Qt.TabFocus : Qt.NoFocus
    hoverEnabled: true
    opacity: pressed ? Theme.pressedOpacity : 1
    onClicked: tapped()
    onSelectedChanged: {
        if (group && selected)
            group.chosen = choice;
    }
    onActiveFocusChanged: {
        if (!group)
            return;
        if (activeFocus)
            group.focused = choice;
        else if (group.focused === choice)
            group.focused = null;
    }
    Component.onCompleted: {
        if (!group)
            return;
        group.members = group.members.concat([choice]);
        if (selected)
            group.chosen = choice;
    }

    Accessible.role: Accessible.RadioButton
    Accessible.name: label
    Accessible.ignored: !(parent?.enabled ?? true)
    Keys.onReturnPressed: choice.tapped()
    Keys.onEnterPressed: choice.tapped()

    Behavior on symbolColor {
        ColorAnimation {
            duration: choice.duration
            easing.type: Theme.easeInOut
        }
    }
    Behavior on labelColor {
        ColorAnimation {
            duration: choice.duration
            easing.type: Theme.easeInOut
        }
    }

    HeldKeyFilter {
        target: choice
    }

    background: RoundedBox {
        color: Theme.answering(choice.selected ? Theme.ink : Theme.buttonFill, choice.hovered, choice.pressed)
        borderColor: choice.selected ? Theme.clear : choice.restingBorder
        borderWidth: Theme.hairline
        radius: choice.cornerRadius

        Behavior on color {
            ColorAnimation {
                duration: choice.duration
                easing.type: Theme.easeInOut
            }
        }
        Behavior on borderColor {
            ColorAnimation {
                duration: choice.duration
                easing.type: Theme.easeInOut
            }
        }

        FocusRing {
            cornerRadius: choice.cornerRadius
            visible: choice.visualFocus
        }
    }
}
