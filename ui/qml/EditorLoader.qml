import QtQuick
import Glimmet

// Holds an editor, made anew each time, while it is active.
Loader {
    id: loader

    required property TickerViewModel ticker
    required property url editor

    Component.onCompleted: setSource(editor, {
        ticker: ticker
    })
}
