import QtQuick
import Glimmet

Item {
    id: root

    required property TickerViewModel ticker

    implicitHeight: button.height

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
        onClicked: root.ticker.fetchRevenue()
    }
}
