import QtQuick
import Glimmet

// A number of a date or time, which keys, steps and assistive programs change.
Item {
    id: root

    required property string name
    required property string text
    required property string widest
    required property int number
    required property int lowest
    required property int highest
    required property real padding

    // What assistive programs read and write.
    property int value: number

    signal stepped(int steps)
    signal entered(int number)
    signal finished

    implicitWidth: Math.ceil(Math.max(metrics.advanceWidth, label.implicitWidth)) + 2 * padding
    implicitHeight: Math.ceil(label.implicitHeight) + 2 * 2
    activeFocusOnTab: true
    onValueChanged: {
        if (value === number)
            return;
        const wanted = value;
        // What is shown stays the entry's own: it may not take the number as it is.
        value = Qt.binding(() => root.number);
        entered(wanted);
    }
    onActiveFocusChanged: {
        if (!activeFocus)
            finished();
    }

    Accessible.role: Accessible.SpinBox
    Accessible.ignored: !(parent?.enabled ?? true)
    Accessible.name: name

    TextMetrics {
        id: metrics
        font: label.font
        text: root.widest
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.segmentRadius
        color: Theme.accent
        visible: root.activeFocus
    }
    InkText {
        id: label
        anchors.right: parent.right
        anchors.rightMargin: root.padding
        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        color: root.activeFocus ? Theme.background : Theme.ink
        font.pixelSize: Theme.rowSize
        Accessible.ignored: true
    }
    MouseArea {
        anchors.fill: parent
        containmentMask: TargetMask {
            target: root
        }
        onPressed: root.forceActiveFocus(Qt.MouseFocusReason)
    }
}
