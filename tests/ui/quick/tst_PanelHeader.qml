import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "PanelHeader"

    PanelHeader {
        id: header
        width: 340
    }

    SignalSpy {
        id: requests
        target: header
        signalName: "settingsRequested"
    }

    function dot(): Item {
        return all(header, LiveDot)[0];
    }

    function test_showsTheName() {
        const title = textOf(header, "glimmet");

        compareFont(title, 20, 600);
        compareInk(title.color, 1);
    }

    function test_saysWhatItIs() {
        const subtitle = textOf(header, "menu bar utility");

        compareFont(subtitle, 11, 400);
        compareInk(subtitle.color, 0.4);
        verify(subtitle.mapToItem(header, 0, 0).y >= textOf(header, "glimmet").height);
    }

    function test_isPadded() {
        const title = areaOf(textOf(header, "glimmet"), header);
        const subtitle = areaOf(textOf(header, "menu bar utility"), header);

        compare(title.x, 20);
        compare(title.y, 18);
        compare(header.height - subtitle.bottom, 14);
    }

    function test_theDotIsASmallAccentCircle() {
        compare(dot().width, 8);
        compare(dot().height, 8);
        verify(dot().x > areaOf(textOf(header, "menu bar utility"), header).right);
        const circle = all(dot(), RoundedBox)[0];
        compareAccent(circle.color, 1);
        verify(circle.radius >= 4);
    }

    function test_theDotPulses() {
        tryVerify(() => dot().growth > 1.34);
        fuzzyCompare(dot().opacity, 0.6, 0.02);
        tryVerify(() => dot().growth < 1.01);
        fuzzyCompare(dot().opacity, 1, 0.02);
    }

    function test_thePulseStaysBetweenItsEnds() {
        for (let i = 0; i < 20; ++i) {
            const growth = dot().growth;
            verify(growth >= 1 && growth <= 1.35);
            fuzzyCompare(dot().opacity, 1 - 0.4 * (growth - 1) / 0.35, 0.001);
            tryVerify(() => dot().growth !== growth);
        }
    }

    function test_thePulseTakesLessThanEightStepsASecond() {
        const seen = new Set();
        let last = -1;
        for (let changes = 0; changes < 14; ++changes) {
            tryVerify(() => dot().growth !== last);
            last = dot().growth;
            seen.add(last.toFixed(4));
        }

        compare(seen.size, 8); // the two ends and six between them
        verify(Theme.pulseDuration / (seen.size - 1) >= 125);
    }

    function test_theDotRestsWhileNobodyUsesThePanel() {
        tryVerify(() => dot().growth > 1.1);

        desktop.setAttended(false);
        compare(dot().growth, 1);

        desktop.setAttended(true);
        tryVerify(() => dot().growth > 1.1);
    }

    function test_theDotRestsWhereLessMotionIsWished() {
        tryVerify(() => dot().growth > 1.1);

        desktop.wish(false, true);

        compare(dot().growth, 1);
        compare(dot().opacity, 1);
    }

    function gear(): PlainButton {
        return all(header, PlainButton)[0];
    }

    function test_theGearStandsAtTheRight() {
        const symbol = all(gear(), SymbolImage)[0];

        compare(symbol.name, "gearshape.fill");
        compare(symbol.size, 14);
        compareInk(symbol.color, 0.4);
        compare(areaOf(gear(), header).right, 320);
        compare(areaOf(symbol, gear()).x, 4);
        compare(areaOf(symbol, gear()).y, 4);
        compareInk(gear().fill, 0);
    }

    function test_theGearAsksForTheSettings() {
        requests.clear();

        mouseClick(gear());
        verify(reader.press(header, "Settings"));

        compare(requests.count, 2);
    }

    function test_theGearIsHitAlsoJustBesideIt() {
        const gear = buttonOf(header, "");
        verify(gear.width < 24 && gear.height < 24);
        requests.clear();

        mouseClick(gear, gear.width / 2, -(24 - gear.height) / 2 + 0.25);
        mouseClick(gear, (24 + gear.width) / 2 - 0.25, gear.height / 2);
        compare(requests.count, 2);
        mouseClick(gear, gear.width / 2, -(24 - gear.height) / 2 - 2);

        compare(requests.count, 2);
    }
}
