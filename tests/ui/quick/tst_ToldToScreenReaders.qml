import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "ToldToScreenReaders"

    Component {
        id: panels

        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }

    property SettingsPanel panel: null

    function init() {
        makeWorld();
        desktop.wish(false, true);
    }

    function show(mode: int) {
        world.ticker.mode = mode;
        panel = make(panels);
    }

    function test_fieldsAreNamedByWhatTheyAreAndCanBeWrittenTo_data() {
        return [
            {mode: TickerMode.Quote, name: "New quote"},
            {mode: TickerMode.Custom, name: "Custom text"},
            {mode: TickerMode.Crypto, name: "New symbol"},
            {mode: TickerMode.Deadline, name: "Deadline name"}
        ];
    }

    function test_fieldsAreNamedByWhatTheyAreAndCanBeWrittenTo(row) {
        show(row.mode);
        verify(reader.isEditable(panel, row.name));
        verify(!reader.isPassword(panel, row.name));

        reader.write(panel, row.name, "abc");

        compare(all(panel, BorderedField)[0].text, "abc");
        verify(reader.read(panel, row.name).includes("abc"));
    }

    function test_aKeysFieldTellsItsHintAndItsState() {
        show(TickerMode.Revenue);
        buttonOf(panel, "API Keys").clicked();
        const name = "STRIPE RESTRICTED KEY";

        compare(reader.description(panel, name), "Dashboard → Developers → API keys. No key saved");
        world.ticker.stripeAPIKey = "rk_1";

        compare(reader.description(panel, name), "Dashboard → Developers → API keys. Key saved in Keychain");
    }

    function test_whatIsScrolledAwayIsNotInView() {
        show(TickerMode.Revenue);
        verify(reader.isInView(panel, "Polar"));
        verify(!reader.isInView(panel, "API Keys"));

        buttonOf(panel, "API Keys").forceActiveFocus(Qt.TabFocusReason);

        verify(reader.isInView(panel, "API Keys"));
        verify(!reader.isInView(panel, "Clock"));
    }

    function test_aControlOffersOneActionBesidesTheKeyboard() {
        show(TickerMode.Clock);

        compare(reader.actions(panel, "Quit"), ["Press", "SetFocus"]);
        compare(reader.actions(panel, "Quote"), ["Press", "SetFocus"]);
        compare(reader.actions(panel, "Show seconds"), ["Toggle", "SetFocus"]);
    }

    function test_textsTakeNoKeyboard() {
        show(TickerMode.Clock);

        verify(!reader.isFocusable(panel, "OPTIONS"));
        verify(reader.isFocusable(panel, "Quit"));
    }

    function test_todayAndTheChosenDayAreTold() {
        show(TickerMode.Deadline);
        reader.press(panel, "Due date");
        const days = all(panel, CalendarDay);
        const today = days.find(day => day.isToday);
        const chosen = days.find(day => day.isChosen);

        compare(reader.description(panel, today.Accessible.name), "Today");
        compare(reader.description(panel, chosen.Accessible.name), "Selected");
        verify(reader.isSelected(panel, chosen.Accessible.name));
        verify(!reader.isSelected(panel, today.Accessible.name));
    }
}
