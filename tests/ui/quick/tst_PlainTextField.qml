import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "PlainTextField"

    Component {
        id: fields

        PlainTextField {
            width: 300
            caption: "SYMBOL"
            placeholder: "BTC-USD"
            text: ""
        }
    }
    SignalSpy {
        id: edits
        signalName: "edited"
    }

    property PlainTextField field: null

    function init() {
        field = make(fields);
        edits.target = field;
        edits.clear();
    }

    function entry(): Item {
        return all(field, BorderedField)[0];
    }

    function test_theCaptionStandsAboveTheField() {
        const caption = textOf(field, "SYMBOL");

        compareFont(caption, 9, 600);
        fuzzyCompare(caption.font.letterSpacing, 1.4, 1 / 64);
        compareInk(caption.color, 0.4);
        verify(areaOf(caption, field).bottom <= areaOf(entry(), field).top);
    }

    function test_theFieldIsPaddedAndMonospaced() {
        compare(entry().font.pixelSize, 12);
        compare(entry().font.family, Appearance.monospacedFamily);
        compare(entry().leftPadding, 12);
        compare(entry().rightPadding, 12);
        compare(entry().topPadding, 9);
        compare(entry().bottomPadding, 9);
        compare(entry().width, 300);
        compareInk(entry().background.color, 0.04);
    }

    function test_thePlaceholderIsShownWhileTheFieldIsEmpty() {
        verify(textOf(field, "BTC-USD") !== null);

        field.text = "ETH-USD";

        compare(textOf(field, "BTC-USD"), null);
        compare(entry().text, "ETH-USD");
    }

    function test_theBorderTakesTheAccentWhileTheFieldHasTheFocus() {
        const box = entry().background;
        compare(box.borderWidth, 1.5);
        compareInk(box.borderColor, 0.12);

        mouseClick(entry());

        verify(entry().activeFocus);
        verify(!isColor(box.borderColor, Appearance.accent));
        tryVerify(() => isColor(box.borderColor, Appearance.accent));
        entry().focus = false;
        tryVerify(() => isColor(box.borderColor, Appearance.ink, 0.12));
    }

    function test_everyKeystrokeIsReported() {
        mouseClick(entry());

        keyClick(Qt.Key_A);
        keyClick(Qt.Key_B);

        compare(edits.count, 2);
        compare(edits.signalArguments[1][0], "ab");
    }

    function test_aTextThatIsSetIsNotReported() {
        field.text = "ETH-USD";

        compare(edits.count, 0);
    }

    function test_theHelpLineIsOptional() {
        const height = field.height;
        field.help = "Found in the settings.";

        const help = textOf(field, "Found in the settings.");
        compareFont(help, 10, 400);
        compareInk(help.color, 0.35);
        tryVerify(() => field.height > height);
        field.help = "";
        tryCompare(field, "height", height);
    }

    function test_isToldAsAnEditableTextNamedByItsCaption() {
        verify(reader.told(field).includes("EditableText SYMBOL"));
    }
}
