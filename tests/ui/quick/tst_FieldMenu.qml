import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "FieldMenu"

    Component {
        id: panels

        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }
    SignalSpy {
        id: closings
        signalName: "closeRequested"
    }

    property SettingsPanel panel: null

    function init() {
        makeWorld();
        desktop.wish(false, true);
        world.ticker.mode = TickerMode.Custom;
        world.ticker.customText = "one two";
        panel = make(panels);
        closings.target = world.host;
        closings.clear();
    }

    function field(): BorderedField {
        return all(panel, BorderedField)[0] as BorderedField;
    }

    function menu(): FieldMenu {
        return all(panel, FieldMenuPlace).find(place => place.isOpen)?.menu ?? null;
    }

    function open() {
        mouseClick(field(), 30, 16, Qt.RightButton);
        tryVerify(() => menu() !== null && menu().opened);
    }

    function rows(): var {
        return all(menu().contentItem, PlainButton);
    }

    function words(): var {
        return rows().map(row => row.text);
    }

    function possible(): var {
        return rows().filter(row => row.enabled).map(row => row.text);
    }

    function row(name: string): PlainButton {
        return rows().find(one => one.text === name) as PlainButton;
    }

    function test_aRightClickOpensItAndGivesTheFieldTheKeyboard() {
        open();

        compare(words(), ["Cut", "Copy", "Paste", "Select all"]);
        verify(field().activeFocus);
    }

    function test_offersWhatIsPossible() {
        open();
        verify(!possible().includes("Cut") && !possible().includes("Copy"));
        mouseClick(row("Select all"));
        compare(field().selectedText, "one two");
        compare(menu(), null);

        clipboard.set("three");
        open();

        compare(possible(), ["Cut", "Copy", "Paste", "Select all"]);
    }

    function test_cutsCopiesAndPastes() {
        field().forceActiveFocus();
        field().select(0, 4);
        open();
        mouseClick(row("Cut"));
        compare(world.ticker.customText, "two");
        field().cursorPosition = 3;
        open();
        mouseClick(row("Paste"));

        compare(world.ticker.customText, "twoone ");
    }

    function test_staysWithinThePanel() {
        mouseClick(field(), field().width - 3, 16, Qt.RightButton);
        tryVerify(() => menu() !== null && menu().opened);
        const place = areaOf(menu().contentItem, panel);

        verify(place.right <= 340 - 6);
        verify(place.bottom <= 540 - 6);
    }

    function test_isUsedWithTheKeyboard() {
        field().forceActiveFocus();
        keyClick(Qt.Key_F10, Qt.ShiftModifier);
        tryVerify(() => menu() !== null);

        for (let i = 0; i < 4; ++i)
            keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);

        compare(field().selectedText, "one two");
        compare(menu(), null);
    }

    function test_escapeClosesTheMenuAlone() {
        open();

        keyClick(Qt.Key_Escape);
        compare(menu(), null);
        compare(closings.count, 0);
        keyClick(Qt.Key_Escape);

        compare(closings.count, 1);
    }

    function test_escapeClosesTheMenuAloneAlsoWhereAScreenReaderHandsItOn_data() {
        return [{tag: "on the page", mode: TickerMode.Custom, enter: () => {}, isIn: () => closings.count === 0},
            {tag: "in a row that is edited", mode: TickerMode.Quote, enter: () => all(panel, QuoteRow)[0].edit(),
                isIn: () => all(panel, QuoteRow)[0].isEditing && closings.count === 0},
            {tag: "on a sheet", mode: TickerMode.Revenue, enter: () => buttonOf(panel, "API Keys").clicked(),
                isIn: () => all(panel, APIKeysSheet).length === 1 && closings.count === 0}];
    }

    function test_escapeClosesTheMenuAloneAlsoWhereAScreenReaderHandsItOn(data) {
        world.ticker.customQuotes = ["one"];
        world.ticker.mode = data.mode;
        passFrames();
        data.enter();
        passFrames();
        const field = testCase.Window.activeFocusItem as BorderedField ?? all(panel, BorderedField)[0];
        field.forceActiveFocus();
        keyClick(Qt.Key_Menu);
        tryVerify(() => menu() !== null && menu().opened);

        keyboard.handOn(testCase.Window.window, Qt.Key_Escape);
        compare(menu(), null);
        verify(data.isIn());
        keyboard.handOn(testCase.Window.window, Qt.Key_Escape);

        tryVerify(() => !data.isIn());
    }

    function test_typingGoesOnIntoTheField() {
        open();
        field().cursorPosition = 7;

        keyClick(Qt.Key_X);

        compare(menu(), null);
        compare(world.ticker.customText, "one twox");
    }

    function test_aPressElsewhereClosesIt() {
        open();

        mousePress(panel, 5, 5);
        mouseRelease(panel, 5, 5);

        tryVerify(() => menu() === null);
    }

    function test_aKeyCanBePastedAndClearedButNotCopied() {
        world.ticker.mode = TickerMode.Revenue;
        tryVerify(() => buttonOf(panel, "API Keys") !== null);
        world.ticker.polarAPIKey = "abc";
        buttonOf(panel, "API Keys").clicked();
        const key = all(panel, SecretField)[0];
        tryVerify(() => key.mapToItem(panel, 0, 0).y < 400);
        clipboard.set("pat_1");

        mouseClick(key, 30, 16, Qt.RightButton);
        tryVerify(() => menu() !== null && menu().opened);
        compare(words(), ["Paste", "Clear"]);
        mouseClick(row("Clear"));
        compare(world.ticker.polarAPIKey, "");
        mouseClick(key, 30, 16, Qt.RightButton);
        tryVerify(() => menu() !== null && menu().opened);
        mouseClick(row("Paste"));

        compare(world.ticker.polarAPIKey, "pat_1");
        verify(key.activeFocus);
    }
}
