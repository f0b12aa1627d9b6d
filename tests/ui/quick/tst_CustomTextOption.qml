import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "CustomTextOption"

    Component {
        id: editors

        CustomTextOption {
            width: 300
            ticker: testCase.world.ticker
        }
    }

    property CustomTextOption option: null

    function init() {
        makeWorld();
        option = make(editors);
    }

    function field(): Item {
        return all(option, BorderedField)[0];
    }

    function test_theFieldHasItsMeasures() {
        compare(field().font.pixelSize, 14);
        compare(field().font.family, "Inter");
        compare(field().leftPadding, 12);
        compare(field().rightPadding, 12);
        compare(field().topPadding, 10);
        compare(field().bottomPadding, 10);
        compare(field().width, 300);
        compareInk(field().background.color, 0.04);
        compare(field().background.radius, 9);
        compare(field().background.borderWidth, 1.5);
        compareInk(field().background.borderColor, 0.12);
    }

    function test_theHelpStandsUnderTheField() {
        const help = textOf(option, "Updates live as you type.");

        compareFont(help, 10, 400);
        compareInk(help.color, 0.38);
        compare(help.y - field().height, 6);
    }

    function test_showsTheText() {
        compare(field().text, "hello world ✦");

        world.ticker.customText = "elsewhere";

        compare(field().text, "elsewhere");
    }

    function test_anEmptyFieldShowsWhatToDo() {
        compare(textOf(field(), "Type your text…"), null);

        world.ticker.customText = "";

        verify(textOf(field(), "Type your text…") !== null);
    }

    function test_everyKeystrokeIsWrittenThrough() {
        world.ticker.mode = TickerMode.Custom;
        world.ticker.customText = "";
        mouseClick(field());

        keyClick(Qt.Key_H);
        compare(world.ticker.customText, "h");
        keyClick(Qt.Key_I);
        compare(world.ticker.customText, "hi");
        world.advance(1);
        compare(world.ticker.currentDisplay, "hi");
    }

    function test_theCursorStaysWhereOneTypes() {
        world.ticker.customText = "ac";
        mouseClick(field());
        field().cursorPosition = 1;

        keyClick(Qt.Key_B);

        compare(world.ticker.customText, "abc");
        compare(field().cursorPosition, 2);
    }

    function test_theBorderTakesTheAccentWhileTheFieldHasTheFocus() {
        mouseClick(field());

        tryVerify(() => isColor(field().background.borderColor, Appearance.accent));
    }

    function test_isToldAsAnEditableText() {
        verify(reader.told(option).includes("EditableText Custom text"));
        verify(reader.told(option).includes("StaticText Updates live as you type."));
    }
}
