import QtQuick
import Glimmet

// The whole panel. Made lower than it is by itself, its middle scrolls.
Rectangle {
    id: root

    required property TickerViewModel ticker
    required property PanelHost host

    // Closes what is open around the keyboard's place. While a screen reader listens to the keys, the toolkit does not
    // ask what is around the place whether the key is meant for it.
    function leaveInnermost(): bool {
        for (let item = Window.activeFocusItem; item; item = item.parent) {
            if ((item as DateTimePicker)?.closeCalendar())
                return true;
            const row = item as RemovableRow;
            if (row?.isEditing) {
                row.cancelEditing();
                return true;
            }
        }
        return false;
    }

    implicitWidth: Theme.panelWidth
    implicitHeight: Theme.panelHeight
    radius: Theme.panelRadius
    color: Theme.background

    Shortcut {
        sequences: ["Escape"]
        // Held, the key that closed a sheet or a calendar does not close the panel too.
        autoRepeat: false
        enabled: !sheets.isUp
        onActivated: {
            if (!root.leaveInnermost())
                root.host.closeRequested();
        }
    }

    Item {
        anchors.fill: parent
        enabled: !sheets.isUp

        PanelHeader {
            id: header
            width: root.width
            onSettingsRequested: sheets.present("AppSettingsSheet.qml", {
                host: root.host
            })
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
                    asked: root.ticker.mode === TickerMode.Revenue
                        ? CredentialLabels.asked(root.ticker.revenueProvider, root.ticker.currentDisplay) : -1
                    onCredentialWanted: key => sheets.present("APIKeysSheet.qml", {
                        ticker: root.ticker,
                        wanted: key
                    })
                    // Of the mode, also while its text is still to come. Prices show no errors.
                    trouble: !root.ticker.isDisplayStale ? ""
                        : Wording.staleness(root.ticker.mode === TickerMode.Revenue ? root.ticker.revenueLabel : "")
                }
                ModeSelector {
                    width: root.width
                    ticker: root.ticker
                }
                ModeOptions {
                    width: root.width
                    ticker: root.ticker
                    stage: sheets
                }
            }
        }
        PanelFooter {
            id: footer
            anchors.bottom: parent.bottom
            width: root.width
            host: root.host
        }
    }
    SheetStage {
        id: sheets
        anchors.fill: parent
    }
}
