import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "DodoCurrencyPicker"

    Component {
        id: pickers

        DodoCurrencyPicker {
            width: 300
            ticker: testCase.world.ticker
        }
    }

    property DodoCurrencyPicker picker: null

    function init() {
        makeWorld();
        world.ticker.mode = TickerMode.Revenue;
        world.ticker.revenueProvider = RevenueProvider.Dodo;
        world.ticker.dodoAPIKey = "key";
        picker = make(pickers);
    }

    function chips(): var {
        return all(picker, UnifiedChip);
    }

    function selected(): var {
        return chips().filter(chip => chip.selected).map(chip => chip.label);
    }

    function field(): Item {
        return all(picker, BorderedField)[0];
    }

    function apply(): Item {
        return buttonOf(picker, "Apply");
    }

    function type(code: string) {
        mouseClick(field());
        field().selectAll();
        for (const letter of code)
            keyClick(letter);
    }

    function test_offersTheCurrenciesInOrder() {
        compare(chips().map(chip => chip.label), ["USD", "EUR", "GBP", "CAD", "AUD"]);
        compare(all(picker, SymbolImage)[0].name, "creditcard");
        compare(selected(), ["USD"]);
    }

    function test_theFieldHasItsMeasures() {
        compare(field().font.pixelSize, 12);
        compare(field().font.family, Appearance.monospacedFamily);
        compare(field().leftPadding, 10);
        compare(field().rightPadding, 10);
        compare(field().topPadding, 6);
        compare(field().bottomPadding, 6);
        compare(field().background.radius, 7);
        compare(field().background.borderWidth, 1.5);
        compareInk(field().background.color, 0.04);
        compareInk(field().background.borderColor, 0.12);
    }

    function test_theFieldsBorderTakesTheAccentWhileItHasTheFocus() {
        mouseClick(field());

        tryVerify(() => isColor(field().background.borderColor, Appearance.accent));
    }

    function test_theButtonStandsBesideTheField() {
        compareFont(textOf(picker, "Apply"), 11, 400);
        compare(apply().leftPadding, 10);
        compare(apply().topPadding, 6);
        compareInk(apply().background.color, 0.07);
        compare(areaOf(apply(), picker).x - areaOf(field(), picker).right, 6);
        compare(areaOf(apply(), picker).right, 300);
        compare(apply().height, field().height);
        verify(areaOf(field(), picker).top > areaOf(chips()[0], picker).bottom);
    }

    function test_aTapSetsTheCurrency() {
        mouseClick(chips()[2]);

        compare(world.ticker.dodoCurrency, "GBP");
        compare(world.ticker.stripeCurrency, "USD");
        compare(selected(), ["GBP"]);
        compare(field().text, "GBP");
    }

    // The assignment asks for the new figure, and so does the tap.
    function test_aTapFetchesTwice() {
        const before = world.revenueFetches();

        mouseClick(chips()[2]);
        compare(world.revenueFetches(), before + 2);
        mouseClick(chips()[2]);
        compare(world.revenueFetches(), before + 4);
    }

    function test_typingSetsAndFetchesNothing() {
        const before = world.revenueFetches();

        type("jpy");

        compare(world.ticker.dodoCurrency, "USD");
        compare(world.revenueFetches(), before);
    }

    function test_theTypedCodeIsAppliedAsItIs_data() {
        return [{tag: "apply"}, {tag: "return"}];
    }

    function test_theTypedCodeIsAppliedAsItIs(row) {
        type(" jpy");
        const before = world.revenueFetches();

        if (row.tag === "return")
            keyClick(Qt.Key_Return);
        else
            mouseClick(apply());

        compare(world.ticker.dodoCurrency, " jpy");
        compare(world.revenueFetches(), before + 2);
        compare(selected(), []);
        verify(chips().every(chip => !chip.checked));
    }

    function test_aTypedCodeOfTheListSelectsItsChip() {
        type("EUR");
        mouseClick(apply());

        compare(selected(), ["EUR"]);
    }

    function test_anEmptyCodeIsAppliedToo() {
        mouseClick(field());
        field().clear();

        mouseClick(apply());

        compare(world.ticker.dodoCurrency, "");
        compare(world.ticker.revenueLabel, "set currency");
    }

    function test_theFieldShowsACurrencyThatIsSetElsewhere() {
        type("jp");

        world.ticker.dodoCurrency = "CHF";

        compare(field().text, "CHF");
    }

    function test_tabVisitsChipsFieldAndButton() {
        chips()[4].forceActiveFocus(Qt.TabFocusReason);
        tab();
        verify(field().activeFocus);
        tab();
        verify(apply().visualFocus);

        keyClick(Qt.Key_Return);

        compare(world.ticker.dodoCurrency, "USD");
    }

    function test_everythingIsToldByItsName() {
        const told = reader.told(picker);

        for (const line of ["StaticText CURRENCY", "Grouping Currency", "RadioButton USD [x]", "RadioButton EUR [ ]",
                "EditableText Currency code", "Button Apply"])
            verify(told.includes(line), line);
    }
}
