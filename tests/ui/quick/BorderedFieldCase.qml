import QtQuick
import QtTest
import Glimmet
import GlimmetTests

// A field that is narrower than its placeholder, and what it reports.
PanelTestCase {
    id: testCase

    readonly property Component fields: Component {
        BorderedField {
            width: 160
            leftPadding: 12
            rightPadding: 12
            topPadding: 9
            bottomPadding: 9
            placeholderText: "a placeholder that is much too long"
            name: "FIELD"
        }
    }
    readonly property SignalSpy edits: SignalSpy {
        signalName: "edited"
    }

    property BorderedField field: null

    function init() {
        makeWorld();
        field = make(fields);
        edits.target = field;
        edits.clear();
    }

    function enter() {
        field.forceActiveFocus();
        keyClick(Qt.Key_End);
    }

    function put(text: string) {
        field.value = text;
        enter();
        edits.clear();
    }

    function type(text: string) {
        for (const letter of text)
            keyClick(letter);
    }

    function texts(): var {
        return edits.signalArguments.map(all => all[0]);
    }

    // Where the caret stands in the field, and that it does.
    function caretIsSeen(): bool {
        const caret = field.cursorRectangle;
        return caret.x >= field.leftPadding - 1 && caret.x <= field.width - field.rightPadding + 1;
    }
}
