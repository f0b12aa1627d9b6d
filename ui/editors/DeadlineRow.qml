import QtQuick
import Glimmet

RemovableRow {
    id: root

    required property TickerViewModel ticker
    required property string deadlineId
    required property string title
    required property string dateText
    required property string countdown
    required property bool isPassed

    subject: title
    details: dateText + ", " + countdown + ". "
    editor: "DeadlineEditor.qml"
    editorInputs: ({
            ticker: ticker,
            deadlineId: deadlineId
        })
    implicitHeight: isEditing ? editorHeight : Math.max(words.height, badge.height) + 2 * 7
    opacity: isPassed && !isRemoved && !isEditing ? Theme.passedOpacity : 1

    // The row says all of these. Its size is known as soon as it is made, which is later in a column.
    Item {
        id: words
        x: 10
        width: badge.x - 8 - x
        height: date.y + date.height
        anchors.verticalCenter: parent.verticalCenter

        CutText {
            id: name
            width: parent.width
            text: root.title
            hasKeyboard: root.wasReachedByKeyboard
            font.pixelSize: Theme.fieldSize
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        CutText {
            id: date
            y: name.height + 2
            width: parent.width
            text: root.dateText
            color: Theme.softText
            font.pixelSize: Theme.smallSize
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    RoundedBox {
        id: badge
        x: root.contentEnd - width
        anchors.verticalCenter: parent.verticalCenter
        width: Math.ceil(time.implicitWidth) + 2 * 7
        height: Math.ceil(time.implicitHeight) + 2 * 4
        radius: Theme.buttonRadius
        color: Theme.countdownFill

        InkText {
            id: time
            anchors.centerIn: parent
            text: root.countdown
            color: Theme.accent
            font.pixelSize: Theme.buttonSize
            font.weight: Theme.semibold
            Accessible.ignored: true
        }
    }
}
