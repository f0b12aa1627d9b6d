import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "APIKeysSheet"

    Component {
        id: sheets

        APIKeysSheet {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
        }
    }

    readonly property var properties: ["polarAPIKey", "revenueCatAPIKey", "revenueCatProjectID", "dodoAPIKey",
        "stripeAPIKey", "lemonSqueezyAPIKey"]

    property APIKeysSheet sheet: null

    function init() {
        makeWorld();
    }

    function open() {
        sheet = make(sheets);
    }

    function sections(): var {
        return all(sheet, KeySection);
    }

    function fields(): var {
        return all(sheet, APIKeyField);
    }

    function entry(index: int): Item {
        return all(fields()[index], BorderedField)[0];
    }

    function badge(section: int): string {
        return all(all(sections()[section], KeyStatusBadge)[0], Text)[0].text;
    }

    function outlined(): var {
        return sections().filter(section => isColor(section.borderColor, Appearance.accent)).map(section => section.title);
    }

    function test_hasItsTitleAndItsSections() {
        open();

        compare(sheet.width, 340);
        verify(textOf(sheet, "API Keys") !== null);
        compare(all(sheet, SymbolImage)[0].name, "key.fill");
        compare(sections().map(section => section.title),
            ["POLAR", "REVENUECAT", "DODO PAYMENTS", "STRIPE", "LEMON SQUEEZY"]);
    }

    function test_theSectionsHoldTheirFields() {
        open();

        compare(sections().map(section => all(section, APIKeyField).map(field => field.caption)),
            [["PERSONAL ACCESS TOKEN"], ["SECRET API KEY", "PROJECT ID"], ["API KEY"], ["RESTRICTED KEY"], ["API KEY"]]);
        compare(fields().map(field => field.placeholder),
            ["pat_…", "sk_…", "proj_…", "dk_live_…", "rk_live_…", "eyJhb…"]);
        compare(fields().map(field => field.hint),
            ["Polar → Settings → API", "Dashboard → Project → API Keys", "Dashboard → Project Settings",
                "Dodo Payments → Settings → API Keys", "Dashboard → Developers → API keys",
                "Lemon Squeezy → Settings → API"]);
    }

    function test_everythingIsAsWideAsItsPlaceAllows() {
        open();

        verify(sections().every(section => areaOf(section, sheet).x === 24 && section.width === 292));
        verify(fields().every(field => areaOf(field, sheet).x === 36 && field.width === 268));
        compare(sheet.height - areaOf(sections()[4], sheet).bottom, 24);
    }

    function test_storedKeysAreShownAtOnceAsDots() {
        for (const property of properties)
            world.ticker[property] = "12345";
        open();

        for (let i = 0; i < 6; ++i) {
            compare(entry(i).displayText, "•••••");
            verify(!fields()[i].isRevealed);
        }
    }

    function test_eachFieldSetsItsPropertyOnly_data() {
        return properties.map((property, index) => ({tag: property, index: index}));
    }

    function test_eachFieldSetsItsPropertyOnly(row) {
        open();
        entry(row.index).forceActiveFocus();

        keyClick(Qt.Key_K);

        compare(properties.map(property => world.ticker[property]), properties.map(property => property === row.tag ? "k" : ""));
    }

    function test_oneEditIsOneSave_data() {
        return [
            {tag: "polar_api_key", index: 0},
            {tag: "revenuecat_api_key", index: 1},
            {tag: "revenuecat_project_id", index: 2},
            {tag: "dodo_api_key", index: 3},
            {tag: "stripe_api_key", index: 4},
            {tag: "lemonsqueezy_api_key", index: 5}
        ];
    }

    function test_oneEditIsOneSave(row) {
        open();
        world.forgetKeySaves();
        entry(row.index).forceActiveFocus();

        keyClick(Qt.Key_A);
        compare(world.keySaves(), [row.tag]);
        compare(world.storedKey(row.tag), "a");
        clipboard.set("bc\nd");
        keySequence(StandardKey.Paste);
        compare(world.keySaves(), [row.tag, row.tag]);
        compare(world.storedKey(row.tag), "abc d");
        keySequence(StandardKey.SelectAll);
        keyClick(Qt.Key_Delete);
        compare(world.keySaves(), [row.tag, row.tag, row.tag]);
        compare(world.storedKey(row.tag), "");
    }

    function test_openingSavesNothing() {
        world.ticker.stripeAPIKey = "rk_1";
        world.forgetKeySaves();

        open();

        compare(world.keySaves(), []);
    }

    function test_aKeyThatArrivesLateIsShownAndNotWrittenBack() {
        const late = world.tickerWithoutKeys();
        sheet = make(sheets, {ticker: late});
        world.forgetKeySaves();
        compare(entry(4).text, "");

        world.keyArrives("stripe_api_key", "rk_late");

        tryCompare(entry(4), "text", "rk_late");
        compare(entry(4).displayText, "•••••••");
        compare(badge(3), "Key saved in Keychain");
        // The ticker itself returns to the store what it read there.
        compare(world.keySaves().filter(name => name === "stripe_api_key").length, 1);
    }

    function test_whoUnlocksByKeyboardStaysInTheSection() {
        sheet = make(sheets, {ticker: world.tickerWithoutKeys()});
        const unlock = all(sections()[3], PlainButton).find(button => button.text === "Unlock");
        unlock.forceActiveFocus(Qt.TabFocusReason);

        keyClick(Qt.Key_Space);
        world.keyArrives("stripe_api_key", "rk_late");

        tryVerify(() => !unlock.visible);
        verify(entry(4).activeFocus);
    }

    function test_aBrokenKeyOfTheStoresIsShownOnOneLineAndLeftAsItIs() {
        world.ticker.stripeAPIKey = "rk\n1";
        open();
        world.forgetKeySaves();
        compare(entry(4).text, "rk 1");

        entry(4).forceActiveFocus();
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Left);

        compare(world.ticker.stripeAPIKey, "rk\n1");
        compare(world.keySaves(), []);
    }

    function test_whatIsTypedCanBeUndone() {
        world.ticker.stripeAPIKey = "rk_1";
        open();
        entry(4).forceActiveFocus();
        keyClick(Qt.Key_End);
        keyClick(Qt.Key_2);
        compare(world.ticker.stripeAPIKey, "rk_12");
        fields()[4].isRevealed = true;

        keySequence(StandardKey.Undo);

        compare(world.ticker.stripeAPIKey, "rk_1");
        keySequence(StandardKey.Redo);
        compare(world.ticker.stripeAPIKey, "rk_12");
    }

    function test_clearingAFieldTurnsItsBadgeAtOnce() {
        world.ticker.dodoAPIKey = "d";
        open();
        compare(badge(2), "Key saved in Keychain");
        entry(3).forceActiveFocus();

        keyClick(Qt.Key_End);
        keyClick(Qt.Key_Backspace);

        compare(badge(2), "No key saved");
        compare(world.ticker.dodoAPIKey, "");
    }

    function test_theBadgeOfRevenueCatIsThatOfItsKey() {
        open();
        world.ticker.revenueCatProjectID = "proj_1";
        compare(badge(1), "No key saved");

        world.ticker.revenueCatAPIKey = "sk_1";

        compare(badge(1), "Key saved in Keychain");
    }

    function problems(): var {
        return sections().map(section => section.problem);
    }

    function test_aPlatformsErrorStandsInItsSectionAlone() {
        const ticker = world.ticker;
        ticker.revenueProvider = RevenueProvider.Stripe;
        ticker.stripeAPIKey = "rk_live_1234";
        ticker.fetchRevenue();
        world.finishFetch("⚠ invalid key");
        open();
        compare(problems(), ["", "", "", "⚠ invalid key · 09:05", ""]);

        ticker.revenueProvider = RevenueProvider.Polar;
        ticker.fetchRevenue();
        world.finishFetch("⚠ the request timed out");
        compare(problems(), ["⚠ the request timed out · 09:05", "", "", "⚠ invalid key · 09:05", ""]);
        ticker.fetchRevenue();
        world.finishFetch("💰 $5.00");

        compare(problems(), ["", "", "", "⚠ invalid key · 09:05", ""]);
        verify(textOf(sections()[3], "⚠ invalid key · 09:05") !== null);
        verify(!all(sheet, Text).some(text => text.text.includes("rk_live_1234")));
    }

    function test_theOutlineFollowsTheProvider() {
        open();
        compare(outlined(), ["POLAR"]);

        world.ticker.revenueProvider = RevenueProvider.Stripe;
        compare(outlined(), ["STRIPE"]);
        world.ticker.revenueProvider = RevenueProvider.LemonSqueezy;
        compare(outlined(), ["LEMON SQUEEZY"]);
    }

    function test_tabVisitsEverythingInOrderOfSight() {
        open();
        const visited = [];
        tab();
        while (!visited.includes(testCase.Window.activeFocusItem) && visited.length < 30) {
            visited.push(testCase.Window.activeFocusItem);
            tab();
        }

        compare(visited.map(item => item.Accessible.name), ["Close",
            "POLAR PERSONAL ACCESS TOKEN", "Show key", "REVENUECAT SECRET API KEY", "Show key",
            "REVENUECAT PROJECT ID", "Show key", "DODO PAYMENTS API KEY", "Show key",
            "STRIPE RESTRICTED KEY", "Show key", "LEMON SQUEEZY API KEY", "Show key"]);
    }

    function test_aFieldScrollsIntoViewWithItsCaptionAndHint() {
        open();
        sheet.height = 300;
        verify(waitForRendering(sheet));
        const area = all(sheet, ScrollArea)[0];
        for (const index of [5, 0, 3]) {
            entry(index).forceActiveFocus(Qt.TabFocusReason);

            const place = areaOf(fields()[index], area);
            verify(place.top >= 0, "the caption of field " + index + " stands at " + place.top);
            verify(place.bottom <= area.height, "the hint of field " + index + " ends at " + place.bottom);
        }
    }

    function test_everythingIsToldByItsName() {
        open();
        const told = reader.told(sheet);

        compare(told.filter(line => line.startsWith("EditableText")),
            ["EditableText POLAR PERSONAL ACCESS TOKEN", "EditableText REVENUECAT SECRET API KEY",
                "EditableText REVENUECAT PROJECT ID", "EditableText DODO PAYMENTS API KEY",
                "EditableText STRIPE RESTRICTED KEY", "EditableText LEMON SQUEEZY API KEY"]);
        compare(told.filter(line => line === "Button Show key").length, 6);
        compare(told.filter(line => line === "Paragraph No key saved").length, 5);
        for (const line of ["Dialog API Keys", "Button Close", "StaticText POLAR", "Paragraph RESTRICTED KEY",
                "Paragraph Lemon Squeezy → Settings → API"])
            verify(told.includes(line), line);
    }
}
