import QtQuick
import Glimmet

// The whole panel. Made lower than it is by itself, its middle scrolls.
Rectangle {
    id: root

    required property TickerViewModel ticker
    required property PanelHost host

    implicitWidth: 340
    implicitHeight: 540
    radius: Theme.panelRadius
    color: Theme.background

    Shortcut {
        sequences: ["Escape"]
        onActivated: root.host.closeRequested()
    }

    PanelHeader {
        id: header
        width: root.width
    }
    Separator {
        id: separator
        anchors.top: header.bottom
        width: root.width
    }
    ScrollArea {
        anchors.top: separator.bottom
        anchors.bottom: footer.top
        width: root.width

        Column {
            width: root.width

            LivePreview {
                width: root.width
                text: Wording.oneLine(root.ticker.currentDisplay)
                spokenText: Wording.oneLine(root.ticker.spokenDisplay)
            }
            ModeSelector {
                width: root.width
                ticker: root.ticker
            }
            ModeOptions {
                width: root.width
                ticker: root.ticker
            }
        }
    }
    PanelFooter {
        id: footer
        anchors.bottom: root.bottom
        width: root.width
        host: root.host
    }
}
