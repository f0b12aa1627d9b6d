import QtQuick
import Glimmet

// A moment to enter field by field, with a calendar that drops down below it.
FocusScope {
    id: root

    required property DateTimeEntry entry

    readonly property CalendarMonth calendar: entry.calendar
    // With what is said below.
    readonly property bool revealedWhole: note.visible

    // By Return in its fields.
    signal entered

    function toggle() {
        const reason = button.visualFocus ? Qt.TabFocusReason : Qt.MouseFocusReason;
        entry.toggleCalendar();
        if (calendar.isOpen)
            (view.item as CalendarView).takeKeyboard(reason);
    }

    function takeKeyboardBack() {
        const showsKeyboard = (view.item as CalendarView).showsKeyboard();
        button.forceActiveFocus(showsKeyboard ? Qt.TabFocusReason : Qt.MouseFocusReason);
    }

    // Whether there was one to close.
    function closeCalendar(): bool {
        if (!calendar.isOpen)
            return false;
        takeKeyboardBack();
        calendar.close();
        return true;
    }

    implicitHeight: column.height
    onActiveFocusChanged: {
        if (!activeFocus)
            entry.leave();
    }

    // The panel closes on the same key.
    Keys.onShortcutOverride: event => event.accepted = root.calendar.isOpen && event.key === Qt.Key_Escape
    Keys.onEscapePressed: event => event.accepted = root.closeCalendar()

    // The calendar is still there when it tells the day, and gone right after.
    Connections {
        target: root.calendar

        function onDayChosen() {
            root.takeKeyboardBack();
        }
    }
    Announcement {
        item: note
        text: note.text
        // It is about what was done just now.
        rest: 300
        gap: 2000
    }
    Column {
        id: column
        width: root.width
        spacing: Theme.rowSpacing

        RoundedBox {
            width: root.width
            height: segments.height + 2 * 7
            radius: Theme.rowRadius
            color: Theme.fieldFill
            borderWidth: Theme.fieldBorderWidth
            borderColor: segments.activeFocus ? Theme.accent : Theme.fieldBorder

            Behavior on borderColor {
                ColorAnimation {
                    duration: Theme.borderDuration
                    easing.type: Theme.easeInOut
                }
            }

            MouseArea {
                anchors.fill: parent
                onPressed: segments.takeKeyboard()
            }
            DateTimeSegments {
                id: segments
                // The segments' own padding makes up for the rest of the field's.
                x: Theme.cardPadding - padding
                anchors.verticalCenter: parent.verticalCenter
                entry: root.entry
                onEntered: root.entered()
            }
            PlainButton {
                id: button
                anchors.right: parent.right
                anchors.rightMargin: Theme.cardPadding - rightPadding
                anchors.verticalCenter: parent.verticalCenter
                horizontalPadding: 6
                verticalPadding: 5
                symbol: "calendar"
                symbolSize: Theme.symbolSize
                ink: root.calendar.isOpen ? Theme.accent : Theme.cardSymbol
                fill: Theme.clear
                Accessible.name: "Due date"
                onClicked: root.toggle()
            }
        }
        InkText {
            id: note
            width: root.width
            wrapMode: Text.Wrap
            text: root.entry.note
            color: Theme.softText
            font.pixelSize: Theme.smallSize
            visible: text.length > 0
        }
        Loader {
            id: view
            width: root.width
            active: root.calendar.isOpen
            visible: active
            Component.onCompleted: setSource("CalendarView.qml", {
                month: root.calendar
            })
        }
    }
}
