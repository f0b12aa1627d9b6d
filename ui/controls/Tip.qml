import QtQuick
import QtQuick.Templates as T
import Glimmet

// Words beside what the pointer or the keyboard rests on, wholly within the window.
T.ToolTip {
    id: tip

    required property TipPlace place

    parent: place
    text: place.words
    delay: 600
    closePolicy: T.Popup.NoAutoClose
    x: Math.round((parent.width - width) / 2)
    y: parent.height + 4
    margins: 6
    horizontalPadding: 8
    verticalPadding: 5
    implicitWidth: Math.min(Math.ceil(implicitContentWidth) + leftPadding + rightPadding, Theme.panelWidth - 2 * margins)
    implicitHeight: Math.ceil(implicitContentHeight) + topPadding + bottomPadding

    // Visible from the first, it would not wait.
    Component.onCompleted: open()

    background: RoundedBox {
        radius: Theme.buttonRadius
        color: Theme.ink
    }
    contentItem: InkText {
        text: tip.text
        color: Theme.background
        font.pixelSize: Theme.smallSize
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}
