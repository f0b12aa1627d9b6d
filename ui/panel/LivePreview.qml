import QtQuick
import Glimmet

// The menu bar's text as large as it fits.
Rectangle {
    id: root

    required property string text
    // What a screen reader says for the text.
    required property string spokenText
    // The number of the credential that the text asks for, which it then leads to; -1 where it asks for none.
    property int asked: -1
    // Why the text is not what it should be by now; empty where it is.
    property string trouble

    // Without its credential nothing is live either.
    readonly property bool isDimmed: trouble.length > 0 || asked >= 0

    signal credentialWanted(int key)

    implicitHeight: Math.ceil(preview.implicitHeight) + 2 * 14
    color: Theme.fieldFill

    CutText {
        id: preview

        readonly property real room: badge.x - 10 - x

        x: Theme.pageMargin
        anchors.verticalCenter: parent.verticalCenter
        width: room / scale
        scale: Geometry.fittingScale(implicitWidth, room)
        transformOrigin: Item.Left
        text: root.text
        font.pixelSize: 26
        font.weight: Theme.medium
        font.underline: root.asked >= 0
        horizontalAlignment: Text.AlignLeft
        maximumLineCount: 1
        elide: Text.ElideRight
        Accessible.name: root.spokenText
        Accessible.ignored: root.asked >= 0 || !(parent?.enabled ?? true)
        // A stop of the Tab key only as long as the keyboard is there: from it the key goes on, and not back to it.
        activeFocusOnTab: activeFocus
        Accessible.focusable: activeFocus
    }
    PlainButton {
        id: way

        // The keyboard, and with it a screen reader, comes to the text that it was all about.
        function handOn() {
            if (activeFocus && !visible)
                preview.forceActiveFocus(Qt.TabFocusReason);
        }

        x: preview.x - Theme.rowSpacing
        width: Math.min(preview.implicitWidth * preview.scale, preview.room) + 2 * Theme.rowSpacing
        height: Math.ceil(preview.height)
        anchors.verticalCenter: preview.verticalCenter
        fill: Theme.clear
        cursorShape: Qt.PointingHandCursor
        visible: root.asked >= 0
        Accessible.name: root.spokenText
        Accessible.description: "Opens the API keys"
        Accessible.ignored: !visible || !(parent?.enabled ?? true)
        onClicked: root.credentialWanted(root.asked)
        // Below a sheet it goes while the keyboard is elsewhere.
        onActiveFocusChanged: handOn()
        onVisibleChanged: handOn()
    }
    FocusRing {
        anchors.fill: way
        cornerRadius: way.cornerRadius
        visible: preview.activeFocus
    }
    Announcement {
        item: preview
        text: root.spokenText
    }
    RoundedBox {
        id: badge
        anchors.right: parent.right
        anchors.rightMargin: Theme.pageMargin
        anchors.verticalCenter: parent.verticalCenter
        width: Math.ceil(live.implicitWidth) + 2 * 6
        height: Math.ceil(live.implicitHeight) + 2 * 3
        radius: height / 2
        color: Theme.badgeFill
        opacity: root.isDimmed ? Theme.passedOpacity : 1

        InkText {
            id: live
            anchors.centerIn: parent
            // The spacing after the last letter would push the word off the middle.
            anchors.horizontalCenterOffset: font.letterSpacing / 2
            text: "LIVE"
            color: Theme.accent
            font.pixelSize: Theme.captionSize
            font.weight: Theme.bold
            font.letterSpacing: 2
            Accessible.description: root.trouble
        }
    }
}
