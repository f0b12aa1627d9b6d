import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "AppSettingsSheet"

    Component {
        id: sheets

        AppSettingsSheet {
            width: 340
            height: implicitHeight
            host: testCase.world.host
        }
    }
    SignalSpy {
        id: checks
        signalName: "updateCheckRequested"
    }
    SignalSpy {
        id: dismissals
        signalName: "dismissed"
    }

    property AppSettingsSheet sheet: null

    function init() {
        makeWorld();
        show();
    }

    function show() {
        sheet = make(sheets);
        checks.target = world.host;
        checks.clear();
        dismissals.target = sheet;
        dismissals.clear();
    }

    function toggle(): GlimmetToggle {
        return all(sheet, GlimmetToggle)[0];
    }

    function updatesRow(): Item {
        return textOf(sheet, "App Updates").parent;
    }

    function test_itsFirstRowIsAsFarFromItsTitleAsTheRowsFromOneAnother() {
        const close = areaOf(all(sheet, PlainButton).find(button => button.Accessible.name === "Close"), sheet);
        const rows = [toggle(), buttonOf(sheet, "Check for Updates").parent].map(row => areaOf(row, sheet));

        compare(rows[0].y - close.bottom, 10);
        compare(rows[1].y - rows[0].bottom, 10);
    }

    function test_isHeadedByItsSymbolAndTitle() {
        const symbol = all(sheet, SymbolImage).find(image => image.name === "gearshape.fill");
        const title = textOf(sheet, "Settings");

        compareAccent(symbol.color, 1);
        compare(symbol.size, 14);
        compareFont(title, 16, 400);
        compare(areaOf(symbol, sheet).x, 24);
    }

    function test_itsRowsStandTenApartInThePadding() {
        const switchArea = areaOf(toggle(), sheet);
        const updates = areaOf(updatesRow(), sheet);

        compare(switchArea.x, 24);
        compare(switchArea.right, 316);
        compare(updates.x, 24);
        compare(updates.right, 316);
        compare(updates.y - switchArea.bottom, 10);
        compare(sheet.height - updates.bottom, 24);
    }

    function test_theUpdatesRowLooksLikeASwitchRow() {
        const row = updatesRow();
        const label = textOf(sheet, "App Updates");
        const button = buttonOf(sheet, "Check for Updates");

        compareFont(label, 13, 400);
        compareInk(label.color, 1);
        compareInk(row.color, 0.05);
        compare(row.radius, 8);
        compare(areaOf(label, row).x, 12);
        compare(row.width - areaOf(button, row).right, 12);
        compare(areaOf(button, row).y, 9);
        compare(row.height - areaOf(button, row).bottom, 9);
        compare(button.font.pixelSize, 11);
        compare(button.leftPadding, 10);
        compare(button.topPadding, 6);
        compareInk(button.fill, 0.07);
    }

    function test_theSwitchShowsWhatTheSystemSaysWhenTheSheetIsMade_data() {
        return [
            {tag: "enabled", state: "on", expected: true},
            {tag: "not registered", state: "off", expected: false},
            {tag: "disabled by the user", state: "disabled", expected: false}
        ];
    }

    function test_theSwitchShowsWhatTheSystemSaysWhenTheSheetIsMade(row) {
        world.setLogin(row.state);

        show();

        compare(toggle().label, "Launch on startup");
        compare(toggle().checked, row.expected);
        compare(world.loginRequests(), []);
    }

    function test_theSwitchAsksTheSystem() {
        mouseClick(toggle());
        compare(toggle().checked, true);
        mouseClick(toggle());

        compare(toggle().checked, false);
        compare(world.loginRequests(), ["register", "unregister"]);
    }

    function test_whatTheUserDisabledElsewhereIsRegisteredAnew() {
        world.setLogin("disabled");
        show();

        mouseClick(toggle());

        compare(world.loginRequests(), ["register"]);
    }

    function test_aFailureIsReportedAndLeavesTheSwitchWhereItWasPut() {
        world.refuseLogin("no room");

        mouseClick(toggle());

        compare(toggle().checked, true);
        compare(world.reported(), ["Launch error: no room"]);
    }

    function test_theNextSheetShowsTheRealStateAgain() {
        world.refuseLogin("no room");
        mouseClick(toggle());

        show();

        compare(toggle().checked, false);
    }

    function topBarToggle(): GlimmetToggle {
        return all(sheet, GlimmetToggle).filter(toggle => toggle.visible)[1] ?? null;
    }

    function showInGnome(state: string) {
        world.setTopBar(state);
        show();
    }

    function test_hasNoRowForTheTopBarWhereTheDesktopHasNone() {
        compare(topBarToggle(), null);
        verify(!textOf(sheet, "Show in the top bar as text"));
    }

    function test_theTopBarsRowStandsBelowTheOthers() {
        showInGnome("off");
        const row = areaOf(topBarToggle(), sheet);
        const updates = areaOf(updatesRow(), sheet);

        compare(topBarToggle().label, "Show in the top bar as text");
        compare(row.x, 24);
        compare(row.right, 316);
        compare(row.y - updates.bottom, 10);
        compare(row.height, areaOf(toggle(), sheet).height);
        compare(sheet.height - row.bottom, 24);
    }

    function test_theTopBarsSwitchShowsWhatTheShellSaysWhenTheSheetIsMade_data() {
        return [
            {tag: "on", state: "on", expected: true},
            {tag: "off", state: "off", expected: false},
            {tag: "not known yet", state: "after login", expected: false}
        ];
    }

    function test_theTopBarsSwitchShowsWhatTheShellSaysWhenTheSheetIsMade(row) {
        showInGnome(row.state);

        compare(topBarToggle().checked, row.expected);
        compare(world.topBarRequests(), []);
    }

    function test_theTopBarsSwitchAsksTheShell() {
        showInGnome("off");

        mouseClick(topBarToggle());
        compare(topBarToggle().checked, true);
        mouseClick(topBarToggle());

        compare(topBarToggle().checked, false);
        compare(world.topBarRequests(), ["enable", "disable"]);
        compare(world.loginRequests(), []);
    }

    function test_saysThatTheTopBarWaitsForTheNextLogin() {
        showInGnome("off");
        verify(!textOf(sheet, "after the next login"));

        showInGnome("after login");
        const note = textOf(sheet, "after the next login");
        const label = textOf(topBarToggle(), "Show in the top bar as text");

        compareFont(note, 10, 400);
        compare(areaOf(note, sheet).x, areaOf(label, sheet).x);
        verify(areaOf(note, sheet).y >= areaOf(label, sheet).bottom);
        verify(areaOf(note, sheet).bottom <= areaOf(topBarToggle(), sheet).bottom);
        compare(topBarToggle().Accessible.description, "after the next login");
    }

    function test_aFailureOfTheTopBarIsReportedAndShowsInTheNextSheet() {
        showInGnome("off");
        world.refuseTopBar("no settings");

        mouseClick(topBarToggle());
        compare(topBarToggle().checked, true);
        compare(world.reported(), ["Top bar error: no settings"]);

        show();
        compare(topBarToggle().checked, false);
    }

    function test_checkingForUpdatesClosesTheSheetFirst() {
        let order = [];
        sheet.dismissed.connect(() => order.push("dismissed"));
        world.host.updateCheckRequested.connect(() => order.push("asked"));

        mouseClick(buttonOf(sheet, "Check for Updates"));

        compare(order, ["dismissed", "asked"]);
    }

    function test_isUsedThroughAssistivePrograms() {
        verify(reader.toggle(sheet, "Launch on startup"));
        verify(reader.press(sheet, "Check for Updates"));
        verify(reader.press(sheet, "Close"));

        compare(world.loginRequests(), ["register"]);
        compare(checks.count, 1);
        compare(dismissals.count, 2);
    }
}
