import QtQuick
import QtQuick.Templates as T
import Glimmet

// Where sheets come up over the panel, one at a time; each is made anew. What lies below is dimmed.
FocusScope {
    id: stage

    // What lies below takes no input while a sheet is up.
    property bool isUp: false

    property Item focusBefore: null
    property int reasonBefore: Qt.OtherFocusReason
    property real presence: isUp ? 1 : 0
    readonly property bool isSeen: isUp || presence > 0

    // Shows a sheet of this file, and gives its required properties these values.
    function present(file: url, inputs: var) {
        if (isUp)
            return;
        focusBefore = Window.activeFocusItem;
        reasonBefore = (focusBefore as T.Control)?.focusReason ?? Qt.OtherFocusReason;
        isUp = true;
        sheet.setSource(file, inputs);
        sheet.item.dismissed.connect(stage.dismiss);
        sheet.item.forceActiveFocus();
    }

    function dismiss() {
        isUp = false;
        focus = false;
        // Nothing had it where it was with the window itself.
        if (focusBefore !== null && focusBefore !== Window.contentItem)
            focusBefore.forceActiveFocus(reasonBefore);
    }

    enabled: isUp
    onIsSeenChanged: {
        if (!isSeen)
            sheet.source = "";
    }

    Behavior on presence {
        NumberAnimation {
            duration: Theme.sheetDuration
            easing.type: Theme.easeInOut
        }
    }

    Shortcut {
        sequences: ["Escape"]
        autoRepeat: false
        enabled: stage.isUp
        onActivated: stage.dismiss()
    }
    RoundedBox {
        anchors.fill: parent
        radius: Theme.panelRadius
        color: Theme.dimming
        opacity: stage.presence
        visible: stage.isSeen
    }
    // Out of use it would still take the pointer's hovering from all that lies below.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        visible: stage.isUp
        onClicked: stage.dismiss()
    }
    // Grows from the lower edge, so that its corners are round all the way up.
    Item {
        id: surface
        anchors.bottom: parent.bottom
        width: stage.width
        height: Math.round(stage.presence * sheet.height)
        clip: true
        visible: height > 0

        RoundedBox {
            anchors.fill: parent
            radius: Theme.panelRadius
            color: Theme.background
        }
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
        }
        Loader {
            id: sheet
            width: surface.width
            height: Math.min(implicitHeight, stage.height - Theme.sheetGap)
        }
    }
}
