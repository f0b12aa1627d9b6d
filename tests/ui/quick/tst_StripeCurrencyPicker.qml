import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "StripeCurrencyPicker"

    Component {
        id: pickers

        StripeCurrencyPicker {
            width: 300
            ticker: testCase.world.ticker
        }
    }

    property StripeCurrencyPicker picker: null

    function init() {
        makeWorld();
        world.ticker.revenueProvider = RevenueProvider.Stripe;
        world.ticker.stripeAPIKey = "key";
        picker = make(pickers);
    }

    function chips(): var {
        return all(picker, UnifiedChip);
    }

    function selected(): var {
        return chips().filter(chip => chip.selected).map(chip => chip.label);
    }

    function test_offersTheCurrenciesInOrder() {
        compare(chips().map(chip => chip.label), ["USD", "EUR", "GBP", "CAD", "AUD"]);
        verify(textOf(picker, "CURRENCY") !== null);
        verify(areaOf(chips()[4], picker).right <= 300);
    }

    function test_aCardStandsBeforeTheChips() {
        const card = all(picker, SymbolImage)[0];

        compare(card.name, "creditcard");
        verify(areaOf(card, picker).right < areaOf(chips()[0], picker).left);
        fuzzyCompare(areaOf(card, picker).y + card.height / 2,
            areaOf(chips()[0], picker).y + chips()[0].height / 2, 1);
    }

    function test_theChipOfTheCurrencyIsSelected() {
        compare(selected(), ["USD"]);

        world.ticker.stripeCurrency = "CAD";

        compare(selected(), ["CAD"]);
    }

    function test_aCurrencyOfItsOwnSelectsNone() {
        world.ticker.stripeCurrency = "JPY";

        compare(selected(), []);
        verify(chips().every(chip => !chip.checked));
    }

    function test_aTapSetsTheCurrency() {
        mouseClick(chips()[1]);

        compare(world.ticker.stripeCurrency, "EUR");
        compare(world.ticker.dodoCurrency, "USD");
        compare(selected(), ["EUR"]);
    }

    function test_aTapInRevenueModeFetchesTwice_data() {
        return [{tag: "another one", chip: 1}, {tag: "the one that is set", chip: 0}];
    }

    // The assignment asks for the new figure, and so does the tap.
    function test_aTapInRevenueModeFetchesTwice(row) {
        world.ticker.mode = TickerMode.Revenue;
        const before = world.revenueFetches();

        mouseClick(chips()[row.chip]);

        compare(world.revenueFetches(), before + 2);
    }
}
