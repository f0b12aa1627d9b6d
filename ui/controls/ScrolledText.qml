import QtQuick
import Glimmet

// A text of any length in a box of little height.
RoundedBox {
    id: box

    required property string title
    required property string text

    readonly property real step: 3 * words.font.pixelSize

    function scrollBy(distance: real) {
        area.contentY = Math.max(0, Math.min(area.contentY + distance, area.contentHeight - area.height));
    }

    implicitHeight: Math.min(Math.ceil(words.implicitHeight), 130) + 2 * 10
    radius: Theme.rowRadius
    color: Theme.rowFill
    activeFocusOnTab: true

    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.description: title
    Accessible.focusable: true
    Accessible.ignored: !visible
    Keys.onUpPressed: box.scrollBy(-step)
    Keys.onDownPressed: box.scrollBy(step)

    FocusRing {
        cornerRadius: Theme.rowRadius
        visible: box.activeFocus
    }
    ScrollArea {
        id: area
        anchors.fill: parent
        anchors.margins: 10

        InkText {
            id: words
            width: area.width
            text: box.text
            font.pixelSize: Theme.buttonSize
            wrapMode: Text.Wrap
            Accessible.ignored: true
        }
    }
}
