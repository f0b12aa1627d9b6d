import QtQuick
import QtQuick.Templates as T
import Glimmet

// A row that switches something; a click anywhere on it does.
T.Switch {
    id: root

    required property string label
    required property bool on

    // The same as a click, for the keys that the toolkit leaves out.
    function press() {
        toggle();
        toggled();
    }

    text: label
    checked: on
    implicitHeight: Math.ceil(Math.max(implicitContentHeight, implicitIndicatorHeight)) + topPadding + bottomPadding
    leftPadding: 12
    rightPadding: 12
    topPadding: 9
    bottomPadding: 9
    focusPolicy: Qt.TabFocus

    Accessible.role: Accessible.CheckBox
    Accessible.name: label
    Keys.onReturnPressed: root.press()
    Keys.onEnterPressed: root.press()

    background: Rectangle {
        color: Theme.rowFill
        radius: Theme.rowRadius

        FocusRing {
            cornerRadius: Theme.rowRadius
            visible: root.visualFocus
        }
    }
    contentItem: InkText {
        text: root.label
        font.pixelSize: Theme.rowSize
        verticalAlignment: Text.AlignVCenter
        rightPadding: root.indicator.width
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    indicator: Rectangle {
        x: root.width - width - root.rightPadding
        y: (root.height - height) / 2
        implicitWidth: 38
        implicitHeight: 22
        radius: height / 2
        scale: 0.8
        transformOrigin: Item.Right
        color: root.checked ? Theme.accent : Theme.switchedOff

        Behavior on color {
            ColorAnimation {
                duration: Theme.borderDuration
                easing.type: Theme.easeInOut
            }
        }

        Rectangle {
            x: 2 + root.visualPosition * (parent.width - width - 4)
            y: 2
            width: 18
            height: 18
            radius: 9
            color: Theme.knob

            Behavior on x {
                NumberAnimation {
                    duration: Theme.borderDuration
                    easing.type: Theme.easeInOut
                }
            }
        }
    }
}
