import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "APIKeyField"

    Component {
        id: fields

        APIKeyField {
            width: 268
            caption: "RESTRICTED KEY"
            placeholder: "rk_live_…"
            hint: "Dashboard → Developers → API keys"
            name: "STRIPE RESTRICTED KEY"
            value: ""
        }
    }
    SignalSpy {
        id: edits
        signalName: "edited"
    }

    property APIKeyField field: null

    function init() {
        makeWorld();
        field = make(fields);
        edits.target = field;
        edits.clear();
    }

    function entry(): BorderedField {
        return all(field, BorderedField)[0] as BorderedField;
    }

    function reveal(): Item {
        return all(field, PlainButton)[0];
    }

    function caption(): Item {
        return textOf(field, "RESTRICTED KEY");
    }

    function test_itsCaptionStandsBesideAKey() {
        const symbol = all(field, SymbolImage)[0];

        compare(symbol.name, "key.fill");
        compare(symbol.size, 10);
        compareInk(symbol.color, 0.4);
        compareFont(caption(), 9, 400);
        compareInk(caption().color, 0.4);
        fuzzyCompare(caption().font.letterSpacing, 1.4, 1 / 64);
        verify(areaOf(caption(), field).left > areaOf(symbol, field).right);
        verify(areaOf(caption(), field).bottom <= areaOf(entry(), field).top);
    }

    function test_itsEntryHasItsMeasures() {
        const box = entry().background;

        compare(entry().font.pixelSize, 12);
        compare(entry().font.family, Appearance.monospacedFamily);
        compare(entry().leftPadding, 12);
        compare(entry().topPadding, 9);
        compare(entry().bottomPadding, 9);
        compare(entry().width, 268);
        compareInk(box.color, 0.04);
        compareInk(box.borderColor, 0.12);
        compare(box.borderWidth, 1.5);
        compare(box.radius, 8);
        verify(textOf(entry(), "rk_live_…") !== null);
    }

    function test_itsBorderTakesTheAccentWhileItHasTheFocus() {
        mouseClick(entry(), 50, 16);

        verify(entry().activeFocus);
        verify(!isColor(entry().background.borderColor, Appearance.accent));
        tryVerify(() => isColor(entry().background.borderColor, Appearance.accent));
    }

    function test_itsEyeStandsAtTheRight() {
        const symbol = all(reveal(), SymbolImage)[0];

        compare(symbol.name, "eye.slash");
        compare(symbol.size, 11);
        compareInk(symbol.color, 0.35);
        compare(areaOf(symbol, field).right, 268 - 12);
        compare(areaOf(reveal(), field).right, 268);
        compare(areaOf(reveal(), field).y, areaOf(entry(), field).y);
        compare(reveal().height, entry().height);
        compare(entry().width - entry().rightPadding, reveal().x);
        compareInk(reveal().background.color, 0);
    }

    function test_itsHintStandsBelow() {
        const hint = textOf(field, "Dashboard → Developers → API keys");

        compareFont(hint, 10, 400);
        compareInk(hint.color, 0.35);
        verify(areaOf(hint, field).top >= areaOf(entry(), field).bottom);
    }

    function test_theStoredKeyIsShownAsDots() {
        field.value = "rk_1";

        compare(entry().displayText, "••••");
        compare(edits.count, 0);
    }

    function test_theButtonRevealsAndHides() {
        field.value = "rk_1";

        mouseClick(reveal());
        verify(field.isRevealed);
        compare(entry().displayText, "rk_1");
        compare(all(reveal(), SymbolImage)[0].name, "eye");
        mouseClick(reveal());

        verify(!field.isRevealed);
        compare(entry().displayText, "••••");
        compare(all(reveal(), SymbolImage)[0].name, "eye.slash");
        compare(edits.count, 0);
    }

    function test_theFocusStaysWhereItIsWhileAClickReveals() {
        mouseClick(entry(), 50, 16);
        keyClick(Qt.Key_A);

        mouseClick(reveal());
        keyClick(Qt.Key_B);

        compare(entry().displayText, "ab");
    }

    function test_everyEditIsReportedOnce_data() {
        return [{tag: "hidden", revealed: false}, {tag: "revealed", revealed: true}];
    }

    function test_everyEditIsReportedOnce(row) {
        field.isRevealed = row.revealed;
        mouseClick(entry(), 50, 16);

        keyClick(Qt.Key_A);
        keyClick(Qt.Key_B);
        keyClick(Qt.Key_Backspace);

        compare(edits.count, 3);
        compare(edits.signalArguments.map(all => all[0]), ["a", "ab", "a"]);
    }

    function test_nothingIsCopiedOrCutWhileItIsHidden() {
        field.value = "rk_1";
        entry().forceActiveFocus();
        clipboard.set("before");

        for (const sequence of [StandardKey.Copy, StandardKey.Cut]) {
            keySequence(StandardKey.SelectAll);
            keySequence(sequence);
        }

        compare(clipboard.text(), "before");
        compare(entry().text, "rk_1");
    }

    function test_whatIsTakenFromARevealedKeyIsMarkedAsSecret_data() {
        return [
            {tag: "copied", take: () => keySequence(StandardKey.Copy), left: "rk_1"},
            {tag: "copied by Ctrl+Insert", take: () => keyClick(Qt.Key_Insert, Qt.ControlModifier), left: "rk_1"},
            {tag: "cut", take: () => keySequence(StandardKey.Cut), left: ""},
            {tag: "cut by Shift+Delete", take: () => keyClick(Qt.Key_Delete, Qt.ShiftModifier), left: ""}
        ];
    }

    function test_whatIsTakenFromARevealedKeyIsMarkedAsSecret(row) {
        field.value = "rk_1";
        field.isRevealed = true;
        entry().forceActiveFocus();
        keySequence(StandardKey.SelectAll);
        clipboard.set("before");

        row.take();

        compare(clipboard.text(), "rk_1");
        compare(clipboard.hint(), "secret");
        compare(entry().text, row.left);
    }

    function test_aPartOfARevealedKeyIsMarkedToo() {
        field.value = "rk_live_1";
        field.isRevealed = true;
        entry().forceActiveFocus();
        entry().select(3, 7);

        keySequence(StandardKey.Copy);

        compare(clipboard.text(), "live");
        compare(clipboard.hint(), "secret");
    }

    function test_otherTextsAreNotMarked() {
        field.value = "rk_1";

        clipboard.set("a quote");

        compare(clipboard.text(), "a quote");
        compare(clipboard.hint(), "");
    }

    function test_itsTextKeepsOutOfWhatInputMethodsLearn() {
        const shy = Qt.ImhSensitiveData | Qt.ImhNoPredictiveText | Qt.ImhNoAutoUppercase;

        compare(entry().inputMethodHints & shy, shy);
        field.isRevealed = true;
        compare(entry().inputMethodHints & shy, shy);
    }

    function test_anInputMethodIsToldNothingOfAHiddenKey() {
        field.value = "rk_1";
        entry().forceActiveFocus();
        entry().select(1, 3);

        compare(keyboard.surroundings(entry()), ["••••", "•••", "•", "••"]);
        field.isRevealed = true;
        verify(keyboard.surroundings(entry()).includes("rk_1"));
    }

    function test_tabGoesFromTheEntryToItsButton() {
        tab();
        verify(entry().activeFocus);
        tab();
        verify(reveal().visualFocus);

        keyClick(Qt.Key_Space);

        verify(field.isRevealed);
    }

    function test_aScreenReaderReadsNoHiddenKey() {
        field.value = "rk_1";
        reader.heard();

        mouseClick(entry(), 50, 16);
        keyClick(Qt.Key_Z);
        keyClick(Qt.Key_Backspace);

        verify(reader.isPassword(field, field.name));
        const texts = reader.read(field, field.name);
        verify(texts.includes("••••"), texts);
        verify(texts.concat(reader.heard()).every(text => text === field.hint || !/[a-z]/.test(text)), texts);
    }

    function test_aScreenReaderReadsARevealedKey() {
        field.value = "rk_1";
        field.isRevealed = true;

        verify(!reader.isPassword(field, field.name));
        verify(reader.read(field, field.name).includes("rk_1"));
    }

    function test_aScreenReaderWritesAHiddenKey() {
        field.value = "rk_1";

        reader.insert(field, field.name, 3, "live_");
        compare(entry().text, "rk_live_1");
        reader.write(field, field.name, "rk_2");
        compare(entry().text, "rk_2");
        reader.write(field, field.name, "");
        compare(entry().text, "");

        compare(edits.signalArguments.map(all => all[0]), ["rk_live_1", "rk_2", ""]);
    }

    function test_aScreenReaderWritesWhatIsSelectedElsewhere() {
        field.value = "rk_1";
        entry().select(0, 2);

        reader.insert(field, field.name, 4, "2");

        compare(entry().text, "rk_12");
        compare(edits.count, 1);
    }

    function test_isToldBySectionAndCaption() {
        verify(reader.told(field).includes("EditableText STRIPE RESTRICTED KEY"));
        verify(reader.told(field).includes("Button Show key"));

        verify(reader.press(field, "Show key"));

        verify(field.isRevealed);
        verify(reader.told(field).includes("Button Hide key"));
        verify(!reader.told(field).includes("Button Show key"));
    }
}
