import QtQuick
import Glimmet

// Looking for updates and installing them, one state after the other.
FocusScope {
    id: root

    required property UpdateWindowModel updater

    property bool showsDetails: false

    implicitWidth: 420
    implicitHeight: Math.ceil(page.implicitHeight) + 2 * Theme.pageMargin
    focus: true

    // What a button does not take for itself.
    Keys.onReturnPressed: updater.chooseDefault()
    Keys.onEnterPressed: updater.chooseDefault()
    Keys.onEscapePressed: updater.escape()

    // The Return that asked for the check may still be held when it has found something.
    HeldKeyFilter {
        target: root
    }

    Announcement {
        item: heading
        rest: 300
        gap: 0
        text: heading.text
    }
    Rectangle {
        anchors.fill: parent
        color: Theme.background
    }
    SymbolImage {
        id: symbol

        property real phase

        x: Theme.pageMargin
        y: Theme.pageMargin
        name: root.updater.symbol
        size: 34
        color: Theme.accent
        // An animation that ends leaves its value behind.
        turn: root.updater.isTurning ? phase : 0

        NumberAnimation on phase {
            running: root.updater.isTurning && Theme.animates
            loops: Animation.Infinite
            from: 0
            to: 360
            duration: Theme.pulseDuration
        }
    }
    Column {
        id: page
        anchors.left: symbol.right
        anchors.leftMargin: 16
        anchors.right: root.right
        anchors.rightMargin: Theme.pageMargin
        y: Theme.pageMargin
        spacing: 12

        Column {
            width: parent.width
            spacing: 4

            InkText {
                id: heading
                width: parent.width
                text: root.updater.heading
                font.pixelSize: 15
                font.weight: Theme.semibold
                wrapMode: Text.Wrap
                Accessible.role: Accessible.Heading
            }
            InkText {
                width: parent.width
                text: root.updater.message
                font.pixelSize: Theme.fieldSize
                color: Theme.choiceInk
                wrapMode: Text.Wrap
            }
        }
        ScrolledText {
            width: parent.width
            title: "What is new"
            text: root.updater.changes
            visible: text.length > 0
        }
        ProgressBar {
            width: parent.width
            value: root.updater.progress
            label: root.updater.heading
            visible: root.updater.isWaiting
        }
        PlainButton {
            id: unfold
            leftPadding: 8
            rightPadding: 8
            topPadding: 4
            bottomPadding: 4
            text: root.showsDetails ? "Hide details" : "Show details"
            ink: Theme.choiceInk
            visible: root.updater.details.length > 0
            Accessible.ignored: !visible
            onClicked: root.showsDetails = !root.showsDetails
        }
        ScrolledText {
            width: parent.width
            title: "Details"
            text: root.updater.details
            visible: unfold.visible && root.showsDetails
        }
        Row {
            anchors.right: parent.right
            topPadding: 4
            spacing: 8

            AnswerButton {
                text: root.updater.otherButton
                enabled: root.updater.isOtherEnabled
                onClicked: root.updater.chooseOther()
            }
            AnswerButton {
                text: root.updater.defaultButton
                ink: Theme.background
                fill: Theme.accent
                onClicked: root.updater.chooseDefault()
            }
        }
    }
}
