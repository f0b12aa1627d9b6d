pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Glimmet

// What can be done with the text of a field. The field keeps the keyboard, and hands it on by `press`.
T.Popup {
    id: menu

    required property T.TextField field

    readonly property bool isSecret: field.echoMode !== TextInput.Normal || field.inputMethodHints & Qt.ImhSensitiveData
    readonly property var entries: isSecret ? [paste, clear] : [cut, copy, paste, selectAll]
    property int current: -1

    // Whether the menu has taken the key.
    function press(key: int): bool {
        switch (key) {
        case Qt.Key_Down:
            current = (current + 1) % entries.length;
            return true;
        case Qt.Key_Up:
            current = (Math.max(current, 0) + entries.length - 1) % entries.length;
            return true;
        case Qt.Key_Return:
        case Qt.Key_Enter:
        case Qt.Key_Space:
            choose(current);
            return true;
        case Qt.Key_Escape:
        case Qt.Key_Menu:
            close();
            return true;
        default:
            close();
            return false;
        }
    }

    function choose(index: int) {
        const entry = entries[index] ?? null;
        if (entry !== null && !entry.isPossible)
            return;
        close();
        entry?.chosen();
    }

    parent: field
    margins: 6
    padding: 4
    focus: false
    closePolicy: T.Popup.CloseOnPressOutside
    implicitWidth: implicitContentWidth + 2 * padding
    implicitHeight: implicitContentHeight + 2 * padding

    component Entry: QtObject {
        required property string words
        required property bool isPossible

        signal chosen
    }

    readonly property Entry cut: Entry {
        words: "Cut"
        isPossible: menu.field.selectedText.length > 0
        onChosen: menu.field.cut()
    }
    readonly property Entry copy: Entry {
        words: "Copy"
        isPossible: menu.field.selectedText.length > 0
        onChosen: menu.field.copy()
    }
    readonly property Entry paste: Entry {
        words: "Paste"
        isPossible: menu.field.canPaste
        onChosen: menu.field.paste()
    }
    readonly property Entry selectAll: Entry {
        words: "Select all"
        isPossible: menu.field.length > 0
        onChosen: menu.field.selectAll()
    }
    readonly property Entry clear: Entry {
        words: "Clear"
        isPossible: menu.field.length > 0
        onChosen: menu.field.clear()
    }

    background: RoundedBox {
        radius: Theme.rowRadius
        color: Theme.background
        borderColor: Theme.quietSymbol
        borderWidth: Theme.hairline
    }
    contentItem: Column {
        Accessible.role: Accessible.PopupMenu
        Accessible.name: "Edit"

        Repeater {
            model: menu.entries

            PlainButton {
                required property Entry modelData
                required property int index

                width: 108
                horizontalPadding: Theme.buttonPadding
                verticalPadding: 6
                text: modelData.words
                enabled: modelData.isPossible
                focusPolicy: Qt.NoFocus
                fill: menu.current === index ? Theme.circleFill : Theme.clear
                cornerRadius: Theme.segmentRadius
                onClicked: menu.choose(index)
            }
        }
    }
}
