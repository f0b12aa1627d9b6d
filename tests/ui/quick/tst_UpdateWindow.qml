import QtQuick
import QtTest
import Glimmet
import GlimmetTests

PanelTestCase {
    id: testCase
    name: "UpdateWindow"
    width: 420

    Component {
        id: scenesOfUpdates

        UpdateScenes {}
    }
    Component {
        id: pages

        UpdateWindow {
            width: testCase.width
            height: implicitHeight
        }
    }
    SignalSpy {
        id: answers
    }

    property UpdateScenes scenes: null
    property UpdateWindow page: null

    function init() {
        makeWorld();
        // Outlives the page, as the program's does.
        scenes = scenesOfUpdates.createObject(testCase) as UpdateScenes;
        scenes.showChecking();
        page = make(pages, {updater: scenes.model});
        page.forceActiveFocus();
    }

    function expect(answer: string) {
        answers.target = scenes.model;
        answers.signalName = answer;
        answers.clear();
    }

    function told(): var {
        return reader.told(page);
    }

    function bar(): ProgressBar {
        return all(page, ProgressBar)[0];
    }

    function test_checkingCanBeCancelled() {
        verify(textOf(page, "Checking for updates…") !== null);
        verify(bar().visible);
        expect("cancelChosen");

        mouseClick(buttonOf(page, "Cancel"));
        keyClick(Qt.Key_Escape);

        compare(answers.count, 2);
    }

    function test_returnDoesNotCancelACheck() {
        expect("cancelChosen");

        keyClick(Qt.Key_Return);

        compare(answers.count, 0);
    }

    function test_upToDateTellsTheVersion() {
        scenes.showUpToDate();

        verify(textOf(page, "You're up to date") !== null);
        verify(textOf(page, "glimmet 1.0 is the newest version available.") !== null);
        verify(!bar().visible);
        compare(buttonOf(page, "Cancel"), null);
    }

    function test_upToDateIsClosedBy_data() {
        return [{key: Qt.Key_Return}, {key: Qt.Key_Enter}, {key: Qt.Key_Escape}];
    }

    function test_upToDateIsClosedBy(row) {
        scenes.showUpToDate();
        expect("closeChosen");

        keyClick(row.key);

        compare(answers.count, 1);
    }

    function test_anUpdateTellsBothVersionsAndWhatChanged() {
        scenes.showFound("Faster ✦\nSmaller");

        verify(textOf(page, "glimmet 1.1 is available") !== null);
        verify(textOf(page, "You have 1.0. Would you like to install the newer version now?") !== null);
        verify(textOf(page, "Faster ✦\nSmaller").visible);
    }

    function test_anUpdateOfWhichNobodyTellsTheChangesHasNoEmptyBox() {
        scenes.showFound("");

        verify(!all(page, ScrolledText)[0].visible);
    }

    function test_aLongListOfChangesIsScrolled() {
        scenes.showFound("one more\n".repeat(80));
        const box = all(page, ScrolledText)[0];
        const area = all(box, Flickable)[0];
        verify(waitForRendering(page));
        verify(page.implicitHeight < 400);

        box.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);

        verify(area.contentY > 0);
        keyClick(Qt.Key_Up);
        keyClick(Qt.Key_Up);
        compare(area.contentY, 0);
    }

    function test_returnInstalls() {
        scenes.showFound("");
        expect("installChosen");

        keyClick(Qt.Key_Return);

        compare(answers.count, 1);
    }

    function test_aHeldReturnAnswersOnce_data() {
        return [{key: Qt.Key_Return}, {key: Qt.Key_Enter}];
    }

    function test_aHeldReturnAnswersOnce(row) {
        scenes.showFound("");
        expect("installChosen");

        keyboard.hold(page.Window.window, row.key, 5);

        compare(answers.count, 1);
    }

    function test_returnOnLaterIsLater() {
        scenes.showFound("");
        buttonOf(page, "Later").forceActiveFocus(Qt.TabFocusReason);
        expect("installChosen");
        keyClick(Qt.Key_Return);
        compare(answers.count, 0);
        expect("closeChosen");

        keyClick(Qt.Key_Return);

        compare(answers.count, 1);
    }

    function test_laterAndEscapeCloseAnUpdate() {
        scenes.showFound("");
        expect("closeChosen");

        mouseClick(buttonOf(page, "Later"));
        keyClick(Qt.Key_Escape);

        compare(answers.count, 2);
    }

    function test_theKeyboardWorksAfterTheFocusedButtonIsGone() {
        scenes.showFound("");
        buttonOf(page, "Install").forceActiveFocus(Qt.TabFocusReason);
        scenes.showInstalling(-1, true);
        expect("cancelChosen");

        keyClick(Qt.Key_Escape);

        compare(answers.count, 1);
    }

    function test_installingShowsHowFarItIs() {
        scenes.showInstalling(40, true);

        verify(textOf(page, "Installing glimmet 1.1…") !== null);
        const fill = all(bar(), RoundedBox)[0];
        fuzzyCompare(fill.width, 0.4 * bar().width, 0.01);
        compare(fill.x, 0);
    }

    function test_installingWithoutAKnownEndStillMoves() {
        scenes.showInstalling(-1, true);
        const fill = all(bar(), RoundedBox)[0];
        const before = fill.x;

        tryVerify(() => fill.x !== before);
    }

    function test_theSymbolStandsUprightAfterTheCheck() {
        const symbol = all(page, SymbolImage)[0];
        tryVerify(() => symbol.turn > 0);

        scenes.showUpToDate();

        compare(symbol.turn, 0);
    }

    function test_nothingMovesWhereTheUserWantsLessMotion() {
        desktop.wish(false, true);
        scenes.showInstalling(-1, true);
        const fill = all(bar(), RoundedBox)[0];
        const before = fill.x;

        wait(100);

        compare(fill.x, before);
    }

    function test_whatCannotBeStoppedOffersNoCancel() {
        scenes.showInstalling(40, false);
        verify(!buttonOf(page, "Cancel").enabled);
        expect("closeChosen");

        keyClick(Qt.Key_Escape);

        compare(answers.count, 1);
    }

    function test_whenDoneReturnRestarts() {
        scenes.showDone();
        verify(textOf(page, "glimmet 1.1 is installed") !== null);
        expect("restartChosen");

        keyClick(Qt.Key_Return);

        compare(answers.count, 1);
    }

    function test_aFailureUnfoldsItsDetails() {
        scenes.showFailed("There is no network.", "Could not resolve 'deb.example'");
        verify(textOf(page, "Could not check for updates") !== null);
        verify(textOf(page, "There is no network.") !== null);
        compare(textOf(page, "Could not resolve 'deb.example'"), null);

        mouseClick(buttonOf(page, "Show details"));

        tryVerify(() => textOf(page, "Could not resolve 'deb.example'") !== null);
        verify(reader.press(page, "Hide details"));
        compare(textOf(page, "Could not resolve 'deb.example'"), null);
    }

    function test_aFailureWithoutDetailsHasNothingToUnfold() {
        scenes.showFailed("There is no network.", "");

        compare(buttonOf(page, "Show details"), null);
    }

    function test_whatNoPackageInstalledSaysWhereUpdatesComeFrom() {
        scenes.showNotPackaged();

        verify(textOf(page, "This copy cannot be updated from here") !== null);
        verify(told().some(line => line.includes("Get newer versions where you got this one")));
    }

    function test_aScreenReaderIsToldEverything() {
        scenes.showFound("Faster ✦");

        const lines = told();

        verify(lines.includes("Heading glimmet 1.1 is available"), lines);
        verify(lines.includes("StaticText You have 1.0. Would you like to install the newer version now?"), lines);
        verify(lines.includes("StaticText Faster ✦"), lines);
        verify(lines.includes("Button Later"), lines);
        verify(lines.includes("Button Install"), lines);
        compare(lines.length, 5, lines.join(' | '));
    }

    function test_aScreenReaderInstalls() {
        scenes.showFound("");
        expect("installChosen");

        verify(reader.press(page, "Install"));

        compare(answers.count, 1);
    }

    function test_everyNewStateIsSaid() {
        const announcement = Array.from(page.data).find(thing => thing instanceof Announcement);
        answers.target = announcement;
        answers.signalName = "said";
        answers.clear();

        scenes.showUpToDate();

        answers.wait();
        compare(answers.signalArguments[0][0], "You're up to date");
    }

    function test_tabGoesFromTheChangesToTheButtons() {
        scenes.showFound("Faster ✦");

        tab();
        verify(all(page, ScrolledText)[0].activeFocus);
        tab();
        verify(buttonOf(page, "Later").activeFocus);
        tab();
        verify(buttonOf(page, "Install").activeFocus);
    }
}
