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
        if (!enabled)
            return;
        toggle();
        toggled();
    }

    text: label
    checked: on
    implicitHeight: Math.ceil(Math.max(implicitContentHeight, Theme.switchRoom)) + topPadding + bottomPadding
    leftPadding: 12
    rightPadding: 12
    topPadding: 9
    bottomPadding: 9
    focusPolicy: Qt.TabFocus
    hoverEnabled: true

    Accessible.role: Accessible.CheckBox
    Accessible.name: label
    Accessible.ignored: !(parent?.enabled ?? true)
    Keys.onReturnPressed: root.press()
    Keys.onEnterPressed: root.press()

    HeldKeyFilter {
        target: root
    }

    background: RoundedBox {
        color: Theme.answering(Theme.rowFill, root.hovered, root.pressed)
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
    indicator: RoundedBox {
        x: root.width - width - root.rightPadding
        y: (root.height - height) / 2
        implicitWidth: Theme.switchWidth
        implicitHeight: Theme.switchHeight
        radius: height / 2
        color: root.checked ? Theme.accent : Theme.switchedOff

        Behavior on color {
            ColorAnimation {
                duration: Theme.borderDuration
                easing.type: Theme.easeInOut
            }
        }

        RoundedBox {
            x: y + root.visualPosition * (parent.width - width - 2 * y)
            y: 2
            width: height
            height: parent.height - 2 * y
            radius: height / 2
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
