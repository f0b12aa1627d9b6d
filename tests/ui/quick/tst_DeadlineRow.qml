import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "DeadlineRow"

    DeadlineRow {
        id: row
        width: 300
        ticker: null
        deadlineId: ""
        title: ""
        dateText: "5 May 2026, 09:05"
        countdown: "2d 5h"
        isPassed: false
    }
    SignalSpy {
        id: removals
        target: row
        signalName: "removed"
    }

    function init() {
        row.title = "Math Exam";
        row.countdown = "2d 5h";
        row.isPassed = false;
        row.isRemoved = false;
        removals.clear();
    }

    function symbol(): Item {
        return all(row, SymbolImage)[0];
    }

    function badge(): Item {
        return textOf(row, row.countdown).parent;
    }

    function test_showsTheNameOverTheDate() {
        const name = textOf(row, "Math Exam");
        const date = textOf(row, "5 May 2026, 09:05");

        compareFont(name, 12, 400);
        compareInk(name.color, 1);
        compareFont(date, 10, 400);
        compareInk(date.color, 0.4);
        compare(areaOf(name, row).x, 10);
        compare(areaOf(date, row).x, 10);
        verify(areaOf(date, row).y >= areaOf(name, row).bottom);
        compare(name.textFormat, Text.PlainText);
    }

    function test_isARoundedFaintRowWithItsPaddings() {
        const words = textOf(row, "Math Exam").parent;

        compareInk(row.color, 0.05);
        compare(row.radius, 8);
        compare(row.height, words.height + 2 * 7);
        compare(areaOf(words, row).y, 7);
    }

    function test_theBadgeHasItsMeasures() {
        const time = textOf(row, "2d 5h");

        compareFont(time, 11, 600);
        compareAccent(time.color, 1);
        compareAccent(badge().color, 0.12);
        compare(badge().width, Math.ceil(time.implicitWidth) + 2 * 7);
        compare(badge().height, Math.ceil(time.implicitHeight) + 2 * 4);
        verify(badge().radius > 0);
        verify(areaOf(badge(), row).right <= areaOf(symbol(), row).x);
    }

    function test_theSymbolStandsAtTheRight() {
        compare(symbol().name, "xmark.circle.fill");
        compare(symbol().size, 14);
        compareInk(symbol().color, 0.2);
        compare(areaOf(symbol(), row).right, 290);
    }

    function test_aPassedOneIsFaint() {
        compare(row.opacity, 1);

        row.isPassed = true;

        compare(row.opacity, 0.4);
    }

    function test_aLongNameEndsInAnEllipsis_data() {
        return [
            {tag: "words", title: "a name that goes on and on, far beyond what one row has room for"},
            {tag: "letters", title: "w".repeat(500)},
            {tag: "right to left", title: "امتحان الرياضيات ".repeat(20)}
        ];
    }

    function test_aLongNameEndsInAnEllipsis(data) {
        row.title = data.title;

        const name = textOf(row, data.title);
        verify(name.truncated);
        compare(name.lineCount, 1);
        compare(areaOf(name, row).x, 10);
        verify(areaOf(name, row).right <= areaOf(badge(), row).x);
        compare(areaOf(symbol(), row).right, 290);
    }

    function tips(): string {
        return all(row, TipPlace).filter(place => place.item !== null && place.item.opened).map(place => place.item.text)
            .join();
    }

    function test_theKeyboardHasItSayItsCutName() {
        row.title = "A release with a name that is far too long for its row";
        mouseMove(row, 60, 200);
        testCase.forceActiveFocus();

        row.takeKeyboard();
        tryVerify(() => tips() === row.title);
        row.isRemoved = true;
        row.takeKeyboard();

        // What stands in its place then is cut as well.
        tryVerify(() => tips() === "Removed " + row.title);
        testCase.forceActiveFocus();
        tryVerify(() => tips() === "");
    }

    function test_pressedItSaysItsCutNameBesideThePointerAlone() {
        row.title = "A release with a name that is far too long for its row";

        mouseClick(row, 60, 12);
        mouseMove(row, 60, 12);
        tryVerify(() => tips() === row.title);
        mouseMove(row, 60, 200);

        tryVerify(() => tips() === "");
        verify(row.hasKeyboard);
    }

    function test_aLongCountdownTakesItsRoomFromTheName() {
        row.countdown = "99999d 23h";

        verify(areaOf(textOf(row, "Math Exam"), row).right <= areaOf(badge(), row).x);
        verify(areaOf(badge(), row).right <= areaOf(symbol(), row).x);
    }

    function test_aClickRemoves() {
        mouseClick(all(row, PlainButton)[0]);

        compare(removals.count, 1);
    }

    function test_isToldOnceAndThenItsButton() {
        compare(reader.told(row).filter(line => !line.startsWith("NoRole") && !line.startsWith("Client")),
            ["ListItem Math Exam", "Button Remove Math Exam"]);
        compare(reader.description(row, "Math Exam"), "5 May 2026, 09:05, 2d 5h. Return edits it, Delete removes it.");
    }
}
