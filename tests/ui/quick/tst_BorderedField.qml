import QtQuick
import QtTest
import Glimmet
import GlimmetTests

BorderedFieldCase {
    id: testCase
    name: "BorderedField"

    Component {
        id: windows

        Window {
            visible: true
        }
    }

    function test_aClickGivesItTheFocus() {
        mouseClick(field);

        verify(field.activeFocus);
        verify(field.cursorVisible);
    }

    function test_itsBorderTakesTheAccentSlowly() {
        const box = field.background;
        compareInk(box.borderColor, 0.12);

        mouseClick(field);

        verify(!isColor(box.borderColor, Appearance.accent));
        tryVerify(() => isColor(box.borderColor, Appearance.accent));
        field.focus = false;
        tryVerify(() => isColor(box.borderColor, Appearance.ink, 0.12));
    }

    function test_itsBorderChangesAtOnceWhereLessMotionIsWished() {
        desktop.wish(false, true);

        mouseClick(field);

        compareAccent(field.background.borderColor, 1);
    }

    function test_itsPlaceholderEndsInAnEllipsis() {
        const placeholder = textOf(field, field.placeholderText);

        verify(placeholder.truncated);
        compare(placeholder.elide, Text.ElideRight);
        compare(placeholder.width, 160 - 12 - 12);
    }

    function test_itsPlaceholderGoesWithTheFirstLetterAndComesBack() {
        enter();
        type("a");
        compare(textOf(field, field.placeholderText), null);

        keyClick(Qt.Key_Backspace);

        verify(textOf(field, field.placeholderText) !== null);
    }

    function test_everyEditIsReportedOnce() {
        enter();

        type("ab");
        keyClick(Qt.Key_Backspace);

        compare(texts(), ["a", "ab", "a"]);
    }

    function test_aValueIsShownAndNotReported() {
        field.value = "one\ntwo";

        compare(field.text, "one two");
        compare(edits.count, 0);
    }

    function test_aValueThatChangesReplacesWhatIsTyped() {
        enter();
        type("ab");

        field.value = "new";

        compare(field.text, "new");
        compare(texts(), ["a", "ab"]);
    }

    function breaks(): var {
        return [
            {tag: "LF", text: "one\ntwo", expected: "one two"},
            {tag: "CR", text: "one\rtwo", expected: "one two"},
            {tag: "CRLF", text: "one\r\ntwo", expected: "one two"},
            {tag: "line separator", text: "one\u2028two", expected: "one two"},
            {tag: "paragraph separator", text: "one\u2029two", expected: "one two"},
            {tag: "at the end", text: "one\n", expected: "one "},
            {tag: "two in a row", text: "one\n\ntwo", expected: "one  two"},
            {tag: "none", text: "one two", expected: "one two"}
        ];
    }

    function test_aPastedBreakIsABlank_data() {
        return breaks();
    }

    function test_aPastedBreakIsABlank(row) {
        put("<>");
        keyClick(Qt.Key_Left);
        clipboard.set(row.text);

        keySequence(StandardKey.Paste);

        compare(field.text, "<" + row.expected + ">");
        compare(field.cursorPosition, 1 + row.expected.length);
        compare(texts(), ["<" + row.expected + ">"]);
        keySequence(StandardKey.Undo);
        compare(field.text, "<>");
        keySequence(StandardKey.Redo);
        compare(field.text, "<" + row.expected + ">");
    }

    function test_aPasteReplacesTheSelection() {
        put("one two three");
        field.select(4, 7);
        clipboard.set("2\n2");

        keySequence(StandardKey.Paste);

        compare(texts(), ["one 2 2 three"]);
        compare(field.cursorPosition, 7);
        keySequence(StandardKey.Undo);
        compare(field.text, "one two three");
    }

    function test_shiftInsertPastesToo() {
        enter();
        clipboard.set("a\nb");

        keyClick(Qt.Key_Insert, Qt.ShiftModifier);

        compare(texts(), ["a b"]);
    }

    function test_aPasteIsUndoneWithoutWhatWasTypedBefore() {
        enter();
        type("x");
        clipboard.set("a\nb");

        keySequence(StandardKey.Paste);
        type("y");

        keySequence(StandardKey.Undo);
        compare(field.text, "xa b");
        keySequence(StandardKey.Undo);
        compare(field.text, "x");
        keySequence(StandardKey.Undo);
        compare(field.text, "");
    }

    // The way that a middle click takes as well.
    function test_whatIsInsertedOtherwiseIsOnOneLine() {
        put("xyz");

        field.insert(2, "a\r\nb");

        compare(texts(), ["xya bz"]);
        compare(field.cursorPosition, 6);
    }

    function test_anInputMethodCommitsOnOneLine() {
        put("xy");

        keyboard.commit(field, "a\r\nb");

        compare(texts(), ["xya b"]);
        compare(field.cursorPosition, 5);
        keySequence(StandardKey.Undo);
        compare(field.text, "xy");
    }

    function test_anAssistiveProgramWritesOnOneLine() {
        put("xy");

        reader.write(field, "FIELD", "a\nb");

        compare(texts(), ["a b"]);
    }

    function test_whatIsComposedIsShownAndNotReportedBeforeItsCommit() {
        put("a");

        keyboard.compose(field, "にほ");
        compare(field.displayText, "aにほ");
        compare(field.text, "a");
        compare(edits.count, 0);
        keyboard.commit(field, "日本");

        compare(texts(), ["a日本"]);
        compare(field.preeditText, "");
    }

    // No input method is there to commit it.
    function test_whatIsComposedIsTakenByAPressBesideTheField() {
        put("a");
        keyboard.compose(field, "にほ");
        mousePress(field, 20, 10);
        mouseRelease(field, 20, 10);
        compare(texts(), []);

        mousePress(testCase, 300, 500);
        mouseRelease(testCase, 300, 500);

        compare(texts(), ["aにほ"]);
        compare(field.preeditText, "");
    }

    function test_whatIsComposedIsTakenWhenAnotherWindowGetsTheKeyboard() {
        put("a");
        keyboard.compose(field, "にほ");

        const other = createTemporaryObject(windows, testCase) as Window;
        other.requestActivate();

        tryVerify(() => texts().length > 0);
        compare(texts(), ["aにほ"]);
        compare(field.preeditText, "");
    }

    function test_theFirstComposedLetterHidesThePlaceholder() {
        enter();

        keyboard.compose(field, "に");

        compare(textOf(field, field.placeholderText), null);
    }

    function test_aComposeKeyIsShownWhileItWaits() {
        enter();

        keyboard.compose(field, "´");
        verify(field.inputMethodComposing);
        keyboard.commit(field, "é");

        compare(field.text, "é");
    }
}
