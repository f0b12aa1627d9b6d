pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

// A month of days to choose from.
RoundedBox {
    id: root

    required property CalendarMonth month

    readonly property bool revealedWhole: true
    readonly property real cellWidth: (width - 2 * inset) / 7
    readonly property real inset: 8

    function cursorDay(): CalendarDay {
        return days.itemAt(month.cursorRow) as CalendarDay;
    }

    // Whether the keyboard's place is to be seen.
    function showsKeyboard(): bool {
        return cursorDay().visualFocus || back.visualFocus || next.visualFocus;
    }

    function takeKeyboard(reason: int) {
        cursorDay().forceActiveFocus(reason);
    }

    function showMonths(further: int, button: PlainButton) {
        const hadKeyboard = button.visualFocus;
        month.showMonths(further);
        if (hadKeyboard && !button.enabled)
            takeKeyboard(Qt.TabFocusReason);
    }

    // The keyboard goes along where it was in a day.
    Connections {
        target: root.month

        function onDayPassed() {
            const held = root.Window.activeFocusItem as CalendarDay;
            if (held?.parent === grid)
                root.takeKeyboard(held.focusReason);
        }
    }

    implicitHeight: column.height + 2 * inset
    radius: Theme.rowRadius
    color: Theme.fieldFill
    borderWidth: Theme.fieldBorderWidth
    borderColor: Theme.fieldBorder

    Column {
        id: column
        x: root.inset
        y: root.inset
        width: root.width - 2 * root.inset
        spacing: 4
        LayoutMirroring.enabled: root.month.isRightToLeft
        LayoutMirroring.childrenInherit: true

        Item {
            width: parent.width
            height: title.height + 2 * 4

            InkText {
                id: title
                anchors.left: parent.left
                anchors.leftMargin: root.cellWidth / 2 - 8
                anchors.verticalCenter: parent.verticalCenter
                text: root.month.title
                font.pixelSize: Theme.fieldSize
                font.weight: Theme.semibold
            }
            PlainButton {
                id: back
                anchors.right: next.left
                anchors.verticalCenter: parent.verticalCenter
                padding: 7
                symbol: root.month.isRightToLeft ? "chevron.right" : "chevron.left"
                symbolSize: Theme.smallSize
                fill: Theme.clear
                enabled: root.month.canGoBack
                Accessible.name: "Previous month"
                onClicked: root.showMonths(-1, back)
            }
            PlainButton {
                id: next
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                padding: 7
                symbol: root.month.isRightToLeft ? "chevron.left" : "chevron.right"
                symbolSize: Theme.smallSize
                fill: Theme.clear
                Accessible.name: "Next month"
                onClicked: root.showMonths(1, next)
            }
        }
        Row {
            Repeater {
                model: root.month.weekdays

                InkText {
                    required property string modelData

                    width: root.cellWidth
                    text: modelData
                    color: Theme.softText
                    font.pixelSize: Theme.captionSize
                    font.weight: Theme.semibold
                    horizontalAlignment: Text.AlignHCenter
                    elide: Text.ElideRight
                    Accessible.ignored: true
                }
            }
        }
        Grid {
            id: grid
            // Mirrored, it would round its own width down.
            width: parent.width
            columns: 7

            Keys.onPressed: event => {
                event.accepted = root.month.pressKey(event.key);
                if (event.accepted)
                    root.takeKeyboard(Qt.TabFocusReason);
            }

            Repeater {
                id: days
                model: root.month

                CalendarDay {
                    required property int index

                    width: root.cellWidth
                    isCursor: root.month.cursorRow === index
                    onClicked: root.month.choose(index)
                }
            }
        }
    }
}
