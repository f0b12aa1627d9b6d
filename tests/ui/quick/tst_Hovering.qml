import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "Hovering"

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
        show(TickerMode.Clock);
    }

    function show(mode: int) {
        world.ticker.mode = mode;
        panel = make(panels);
        mouseMove(panel, 2, 2);
    }

    function named(type, name: string): Item {
        return all(panel, type).find(item => item.visible && item.Accessible.name === name);
    }

    function shape(): int {
        return pointer.shapeIn(testCase.Window.window);
    }

    // How far a place of the panel is from its ground, the symbol and the letters of a control aside.
    function inkAt(item: Item): real {
        const place = item.mapToItem(panel, 3, item.height / 2);
        return Math.abs(grabImage(panel).pixel(place.x, place.y).hslLightness - Appearance.background.hslLightness);
    }

    function moveTo(item: Item) {
        mouseMove(item, item.width / 2, item.height / 2);
    }

    function compareSteps(item: Item, sign = 1) {
        mouseMove(panel, 2, 2);
        const resting = inkAt(item);
        moveTo(item);
        tryVerify(() => (inkAt(item) - resting) * sign > 0.01, 5000, "under the pointer");
        const hovered = inkAt(item);

        mousePress(item);
        tryVerify(() => Math.abs(inkAt(item) - hovered) > 0.01, 5000, "pressed");
        mouseMove(panel, 2, 2);
        mouseRelease(panel, 2, 2);

        tryVerify(() => Math.abs(inkAt(item) - resting) < 0.005, 5000, "left");
    }

    function test_theHandIsOverQuitAlone() {
        moveTo(buttonOf(panel, "Quit"));
        tryVerify(() => shape() === Qt.PointingHandCursor);

        mouseMove(panel, 170, 300);

        tryVerify(() => shape() === Qt.ArrowCursor);
    }

    function test_theHandIsOverQuitAgainAfterASheet() {
        named(PlainButton, "Settings").clicked();
        keyClick(Qt.Key_Escape);

        moveTo(buttonOf(panel, "Quit"));

        tryVerify(() => shape() === Qt.PointingHandCursor);
    }

    function test_nothingBelowASheetAnswers() {
        named(PlainButton, "Settings").clicked();
        const quit = buttonOf(panel, "Quit");

        moveTo(quit);
        passFrames();

        verify(!quit.hovered);
        compare(shape(), Qt.ArrowCursor);
    }

    function test_buttonsAnswer_data() {
        return [{name: "Quit"}, {name: "Settings"}];
    }

    function test_buttonsAnswer(row) {
        compareSteps(named(PlainButton, row.name));
    }

    function test_cardsAnswer() {
        compareSteps(named(ModeCard, "Quote"));
    }

    function test_theChosenCardAnswersByGivingWay() {
        compareSteps(named(ModeCard, "Clock"), -1);
    }

    function test_switchesAnswer() {
        compareSteps(all(panel, GlimmetToggle)[0]);
    }

    function test_chipsAnswer() {
        show(TickerMode.Revenue);

        compareSteps(named(ProviderChip, "Stripe"));
    }

    function test_crossesAnswer() {
        world.ticker.addQuote("one");
        show(TickerMode.Quote);

        compareSteps(named(PlainButton, "Remove one"));
    }

    function test_daysAnswer() {
        show(TickerMode.Deadline);
        named(PlainButton, "Due date").clicked();
        const day = all(panel, CalendarDay).find(item => item.enabled && !item.isChosen && !item.isToday);
        tryVerify(() => day.mapToItem(panel, 0, day.height).y < 490);

        compareSteps(day);
    }
}
