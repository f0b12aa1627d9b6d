import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "ClockOptions"

    Component {
        id: editors

        ClockOptions {
            width: 300
            ticker: testCase.world.ticker
        }
    }

    property ClockOptions options: null

    function init() {
        makeWorld();
        options = make(editors);
    }

    function toggle(index: int): Item {
        return all(options, GlimmetToggle)[index];
    }

    function test_holdsTwoRows() {
        compare(all(options, GlimmetToggle).map(row => row.label), ["Show seconds", "24-hour format"]);
        compare(toggle(1).y - toggle(0).height, 6);
        compare(toggle(0).width, 300);
    }

    function test_bothAreOnAtFirst() {
        verify(toggle(0).checked);
        verify(toggle(1).checked);
    }

    function test_secondsCanBeLeftOut() {
        mouseClick(toggle(0));
        world.advance(1);

        verify(!world.ticker.showSeconds);
        compare(world.ticker.currentDisplay, "09:05");
        mouseClick(toggle(0));
        verify(world.ticker.showSeconds);
    }

    function test_theDayCanHaveTwelveHours() {
        mouseClick(toggle(1));
        world.advance(1);

        verify(!world.ticker.use24Hour);
        compare(world.ticker.currentDisplay.toLowerCase(), "9:05:08 am");
    }

    function test_theRowsFollowTheTicker() {
        mouseClick(toggle(0));
        world.ticker.showSeconds = true;
        world.ticker.use24Hour = false;

        verify(toggle(0).checked);
        verify(!toggle(1).checked);
    }

    function test_aScreenReaderTogglesOnce() {
        verify(reader.toggle(options, "24-hour format"));

        verify(!world.ticker.use24Hour);
        verify(world.ticker.showSeconds);
    }
}
