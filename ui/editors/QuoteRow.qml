import QtQuick
import Glimmet

RemovableRow {
    id: root

    required property TickerViewModel ticker
    required property string quote

    subject: quote
    editor: "QuoteEditor.qml"
    editorInputs: ({
            ticker: ticker,
            quote: quote
        })
    implicitHeight: Math.ceil(Math.max(label.implicitHeight, Theme.symbolSize)) + 2 * 7

    InkText {
        id: label
        x: 10
        width: root.contentEnd - x
        anchors.verticalCenter: parent.verticalCenter
        text: root.quote
        font.pixelSize: Theme.buttonSize
        wrapMode: Text.Wrap
        // The row says it.
        Accessible.ignored: true
    }
}
