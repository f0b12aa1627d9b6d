import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "LivePreview"

    LivePreview {
        id: preview
        width: 340
        text: ""
        spokenText: ""
    }

    SignalSpy {
        id: wishes
        target: preview
        signalName: "credentialWanted"
    }
    SignalSpy {
        id: said
        signalName: "said"
    }

    function init() {
        preview.text = "09:05:07";
        preview.trouble = "";
    }

    function badge(): Item {
        return textOf(preview, "LIVE").parent;
    }

    function test_showsTheTextLarge() {
        const text = textOf(preview, "09:05:07");

        compareFont(text, 26, 500);
        compareInk(text.color, 1);
        compare(text.scale, 1);
        compare(text.x, 20);
    }

    function test_isSpokenInItsOwnWords() {
        preview.spokenText = "09:05";

        compare(reader.told(preview), ["StaticText 09:05", "StaticText LIVE"]);
    }

    function test_aChangeIsAnnouncedInItsOwnWords() {
        const news = announcementIn(preview);
        news.rest = 10;
        said.target = news;

        preview.spokenText = "nine o'clock";

        said.wait();
        compare(said.signalArguments[0][0], "nine o'clock");
        compare(news.item, textOf(preview, "09:05:07"));
    }

    function test_isPaddedOnAFaintGround() {
        const text = textOf(preview, "09:05:07");

        compareInk(preview.color, 0.04);
        compare(preview.height, Math.ceil(text.implicitHeight) + 28);
        compare(areaOf(badge(), preview).right, 320);
    }

    function test_theBadgeIsAnAccentCapsule() {
        const live = textOf(preview, "LIVE");

        compareFont(live, 9, 700);
        compare(live.font.letterSpacing, 2);
        compareAccent(live.color, 1);
        compareAccent(badge().color, 0.18);
        compare(badge().width, Math.ceil(live.implicitWidth) + 12);
        compare(badge().height, Math.ceil(live.implicitHeight) + 6);
        compare(badge().radius, badge().height / 2);
    }

    function test_theBadgeIsDimmedAndSaysWhyWhileTheTextIsStale() {
        compare(badge().opacity, 1);
        compare(reader.description(preview, "LIVE"), "");

        preview.trouble = "The last refresh failed";

        verify(preview.isDimmed);
        compare(badge().opacity, 0.4);
        compare(reader.description(preview, "LIVE"), "The last refresh failed");
        compareInk(textOf(preview, "09:05:07").color, 1);
        compare(textOf(preview, "09:05:07").opacity, 1);
    }

    function test_aLongTextShrinksUntilItFits() {
        preview.text = "a text that needs some more room";

        const text = textOf(preview, preview.text);
        verify(text.scale < 1);
        verify(text.scale > 0.4);
        verify(!text.truncated);
        fuzzyCompare(text.implicitWidth * text.scale, text.room, 0.5);
    }

    function test_aVeryLongTextShrinksToFortyPercentAndIsThenCut() {
        preview.text = "a text that is much too long for the panel and does not fit into it however small it is";

        const text = textOf(preview, preview.text);
        compare(text.scale, 0.4);
        verify(text.truncated);
        fuzzyCompare(areaOf(text, preview).right, badge().x - 10, 0.5);
        compare(text.lineCount, 1);
    }

    function test_theRowKeepsItsHeightWhenTheTextShrinks() {
        const height = preview.height;

        preview.text = "a text that is much too long for the panel and does not fit into it however small it is";

        compare(preview.height, height);
    }

    function test_angleBracketsAreNoMarkup() {
        preview.text = "<b>deep work</b> > busy work";

        compare(textOf(preview, preview.text).textFormat, Text.PlainText);
    }

    function ask(key: int) {
        preview.text = "add api key";
        preview.spokenText = "add api key";
        preview.asked = key;
    }

    function test_isNoControlWhereItAsksForNothing() {
        preview.asked = -1;

        compare(all(preview, PlainButton).filter(button => button.visible), []);
        verify(!textOf(preview, "09:05:07").font.underline);
    }

    function test_leadsToTheKeyThatItAsksFor() {
        ask(4);
        wishes.clear();

        verify(textOf(preview, "add api key").font.underline);
        mouseClick(preview, 40, preview.height / 2);
        mouseClick(preview, 220, preview.height / 2);
        all(preview, PlainButton)[0].forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Return);

        compare(Array.from(wishes.signalArguments).map(values => values[0]),
            [4, 4]);
        preview.asked = -1;
    }

    function test_nothingIsLiveWithoutTheKey() {
        ask(4);
        compare(badge().opacity, 0.4);

        preview.asked = -1;
        compare(badge().opacity, 1);
    }

    function test_isToldAsAButtonThatOpensTheKeys() {
        ask(4);

        compare(reader.told(preview), ["Button add api key", "StaticText LIVE"]);
        compare(reader.description(preview, "add api key"), "Opens the API keys");
        preview.asked = -1;
    }

    function keyboardPlace(): string {
        return preview.Window.activeFocusItem?.Accessible.name ?? "";
    }

    function answer() {
        preview.asked = -1;
        preview.text = "💰 $17.00";
        preview.spokenText = preview.text;
    }

    function test_theKeyboardComesToTheAnswerInPlaceOfTheQuestion() {
        ask(4);
        all(preview, PlainButton)[0].forceActiveFocus(Qt.TabFocusReason);
        compare(keyboardPlace(), "add api key");

        answer();

        compare(keyboardPlace(), "💰 $17.00");
        compare(all(preview, FocusRing).filter(ring => ring.visible).length, 1);
    }

    function test_theKeyboardThatComesBackFindsTheAnswer() {
        ask(4);
        const question = all(preview, PlainButton)[0];
        badge().forceActiveFocus(Qt.TabFocusReason);
        answer();
        verify(keyboardPlace() !== "💰 $17.00");

        question.forceActiveFocus(Qt.TabFocusReason);

        compare(keyboardPlace(), "💰 $17.00");
        compare(all(preview, FocusRing).filter(ring => ring.visible).length, 1);
    }
}
