import QtQuick
import Glimmet

// Holds an editor, made anew each time, while it is active.
Loader {
    id: loader

    required property TickerViewModel ticker
    required property url editor
    // What the editor requires besides the ticker.
    property var inputs: ({})

    Component.onCompleted: setSource(editor, Object.assign({
        ticker: ticker
    }, inputs))
}
