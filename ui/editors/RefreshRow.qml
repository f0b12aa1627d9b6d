import QtQuick
import Glimmet

// The row keeps the keyboard while its button is out of use: it goes on from here, and comes back to here.
FocusScope {
    id: root

    required property TickerViewModel ticker

    // As it was before the button went out of use.
    property bool showsKeyboard: false

    implicitHeight: button.height
    // The Tab key goes on only from what it stops at.
    activeFocusOnTab: activeFocus && !button.enabled

    InkText {
        anchors.verticalCenter: parent.verticalCenter
        text: "Auto-refreshes every 5 min"
        color: Theme.helpText
        font.pixelSize: Theme.smallSize
        visible: !root.ticker.isFetchingRevenue
    }
    Row {
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.rowSpacing
        visible: root.ticker.isFetchingRevenue

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            running: root.ticker.isFetchingRevenue
            factor: 0.6
        }
        InkText {
            id: fetching
            anchors.verticalCenter: parent.verticalCenter
            text: "Fetching…"
            color: Theme.busyText
            font.pixelSize: Theme.buttonSize
        }
    }
    Announcement {
        item: fetching
        text: root.ticker.isFetchingRevenue ? fetching.text : ""
    }
    PlainButton {
        id: button
        anchors.right: parent.right
        horizontalPadding: Theme.buttonPadding
        verticalPadding: 5
        text: "Refresh"
        symbol: "arrow.clockwise"
        enabled: !root.ticker.isFetchingRevenue
        onVisualFocusChanged: {
            if (enabled)
                root.showsKeyboard = visualFocus;
        }
        onEnabledChanged: {
            if (activeFocus && root.showsKeyboard)
                focusReason = Qt.TabFocusReason;
        }
        onClicked: root.ticker.fetchRevenue()
    }
}
