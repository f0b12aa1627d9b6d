import QtQuick
import Glimmet
import GlimmetTests
import ".."

// What the mouse selects is what a middle click pastes: a thing of X11's that needs a server to test.
PanelTestCase {
    id: testCase
    name: "PrimarySelection"

    Component {
        id: fields

        BorderedField {
            width: 160
            leftPadding: 12
            rightPadding: 12
            topPadding: 9
            bottomPadding: 9
        }
    }
    Component {
        id: keys

        APIKeyField {
            width: 268
            caption: "RESTRICTED KEY"
            placeholder: "rk_live_…"
            hint: "Dashboard → Developers → API keys"
            name: "STRIPE RESTRICTED KEY"
            value: "secretkey"
        }
    }

    function init() {
        makeWorld();
        clipboard.set("before", ClipboardProbe.Selection);
        compare(clipboard.text(ClipboardProbe.Selection), "before");
    }

    function selectAllOf(field: Item) {
        mousePress(field, 13, 16);
        for (let x = 20; x <= 120; x += 10)
            mouseMove(field, x, 16, -1, Qt.LeftButton);
        mouseRelease(field, 120, 16);
    }

    function test_takesWhatTheMouseSelects() {
        const field = make(fields, {value: "one two"}) as BorderedField;

        selectAllOf(field);

        compare(field.selectedText, "one two");
        compare(clipboard.text(ClipboardProbe.Selection), "one two");
        compare(clipboard.hint(ClipboardProbe.Selection), "");
    }

    function test_isPastedOnOneLine() {
        const field = make(fields, {value: "xy"}) as BorderedField;
        clipboard.set("a\r\nb", ClipboardProbe.Selection);

        mouseClick(field, 150, 16, Qt.MiddleButton);

        compare(field.text, "xya b");
        compare(field.cursorPosition, 5);
    }

    function test_takesNothingOfAHiddenKey() {
        const key = make(keys) as APIKeyField;
        const entry = all(key, BorderedField)[0] as BorderedField;

        selectAllOf(entry);
        mouseDoubleClickSequence(entry, 30, 16);
        entry.forceActiveFocus();
        keySequence(StandardKey.SelectAll);
        keySequence(StandardKey.SelectStartOfLine);

        compare(clipboard.text(ClipboardProbe.Selection), "before");
    }

    function test_takesARevealedKeyMarkedAsSecret() {
        const key = make(keys, {isRevealed: true}) as APIKeyField;

        selectAllOf(all(key, BorderedField)[0]);

        compare(clipboard.text(ClipboardProbe.Selection), "secretkey");
        compare(clipboard.hint(ClipboardProbe.Selection), "secret");
    }

    function test_aCopiedKeyIsMarkedThereToo() {
        const key = make(keys, {isRevealed: true}) as APIKeyField;
        const entry = all(key, BorderedField)[0] as BorderedField;
        entry.forceActiveFocus();
        entry.selectAll();

        keySequence(StandardKey.Copy);

        compare(clipboard.text(), "secretkey");
        compare(clipboard.hint(), "secret");
    }
}
