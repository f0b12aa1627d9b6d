pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "FlowLayout"

    Component {
        id: layouts

        FlowLayout {
            width: 100
            spacing: 6
        }
    }
    Component {
        id: boxes

        Item {
            implicitWidth: 40
            implicitHeight: 20
        }
    }
    Component {
        id: lists

        FlowLayout {
            property alias entries: model.entries
            property alias rows: rows

            width: 100
            spacing: 6

            Repeater {
                id: rows
                model: TextListModel {
                    id: model
                }

                Item {
                    required property string entry

                    implicitWidth: 40
                    implicitHeight: 20
                }
            }
        }
    }

    property FlowLayout layout: null

    function init() {
        makeWorld();
        layout = makeLayout();
    }

    function makeLayout(properties = {}): Item {
        return createTemporaryObject(layouts, testCase, properties) as Item;
    }

    function add(width: real, height: real): Item {
        return boxes.createObject(layout, {
            implicitWidth: width,
            implicitHeight: height
        }) as Item;
    }

    function placesOf(items): var {
        return items.map(item => item.x + "," + item.y);
    }

    function compareSoon(items, places) {
        tryVerify(() => placesOf(items).join(" ") === places.join(" "), 2000, placesOf(items).join(" "));
    }

    function test_wrapsItsChildrenAtTheirImplicitSizes() {
        const items = [add(40, 20), add(40, 30), add(40, 20)];

        compareSoon(items, ["0,0", "46,0", "0,36"]);
        compare(layout.implicitHeight, 56);
        compare(layout.height, 56);
        compare(items.map(item => item.width), [40, 40, 40]);
    }

    function test_withoutChildrenItHasNoHeight() {
        tryCompare(layout, "isLaidOut", true);

        compare(layout.implicitHeight, 0);
    }

    function test_aWideChildIsNotSqueezed() {
        const items = [add(40, 20), add(300, 20), add(40, 20)];

        compareSoon(items, ["0,0", "0,26", "0,52"]);
        compare(items[1].width, 300);
        compare(layout.width, 100);
    }

    function test_withoutAWidthEverythingIsOnOneRow() {
        layout.width = undefined;
        const items = [add(400, 20), add(400, 20)];

        compareSoon(items, ["0,0", "406,0"]);
        compare(layout.implicitWidth, 0);
        compare(layout.implicitHeight, 20);
    }

    function test_followsTheSizesOfItsChildren() {
        const items = [add(40, 20), add(40, 20), add(40, 20)];
        compareSoon(items, ["0,0", "46,0", "0,26"]);

        items[0].implicitWidth = 60;
        compareSoon(items, ["0,0", "0,26", "46,26"]);
        items[1].implicitHeight = 30;
        tryCompare(layout, "implicitHeight", 56);
    }

    function test_passesOverWhatIsHidden() {
        const items = [add(40, 20), add(40, 20), add(40, 20)];
        items[0].visible = false;
        compareSoon(items.slice(1), ["0,0", "46,0"]);
        compare(layout.implicitHeight, 20);

        items[0].visible = true;

        compareSoon(items, ["0,0", "46,0", "0,26"]);
    }

    function test_closesUpWhereAChildLeaves() {
        const items = [add(40, 20), add(40, 20), add(40, 20)];
        compareSoon(items, ["0,0", "46,0", "0,26"]);

        items[1].destroy();

        compareSoon([items[0], items[2]], ["0,0", "46,0"]);
        compare(layout.implicitHeight, 20);
    }

    function test_aChildThatMovedAwayIsLeftAlone() {
        const items = [add(40, 20), add(40, 20)];
        compareSoon(items, ["0,0", "46,0"]);

        items[1].parent = testCase;
        items[1].x = 7;
        items[1].implicitWidth = 50;
        items[0].implicitWidth = 50;

        tryCompare(items[0], "width", 50);
        compare(items[1].x, 7);
        items[1].destroy();
    }

    function test_followsItsWidthAndItsSpacing() {
        const items = [add(40, 20), add(40, 20), add(40, 20)];
        compareSoon(items, ["0,0", "46,0", "0,26"]);

        layout.width = 140;
        compareSoon(items, ["0,0", "46,0", "92,0"]);
        layout.spacing = 10;
        compareSoon(items, ["0,0", "50,0", "0,30"]);
    }

    function test_followsTheOrderOfItsChildren() {
        const list = createTemporaryObject(lists, testCase, {
            entries: ["one", "two"]
        }) as Item;
        tryCompare(list, "isLaidOut", true);

        list.entries = ["zero", "one", "two"];

        const item = index => list.rows.itemAt(index);
        tryVerify(() => placesOf([item(0), item(1), item(2)]).join(" ") === "0,0 46,0 0,26");
    }

    function test_theFirstLayoutIsNotAnimated() {
        layout.duration = 10000;
        const items = [add(40, 20), add(40, 20), add(40, 20)];

        tryCompare(layout, "isLaidOut", true);

        compare(placesOf(items), ["0,0", "46,0", "0,26"]);
    }

    function test_aChangedListGlides() {
        layout.duration = 200;
        const items = [add(40, 20), add(40, 20), add(40, 20)];
        tryCompare(layout, "isLaidOut", true);

        items[0].visible = false;

        tryVerify(() => items[1].x > 0 && items[1].x < 46);
        verify(items[2].y > 0 && items[2].y < 26);
        compareSoon(items.slice(1), ["0,0", "46,0"]);
    }

    function test_aGlideGoesOnFromWhereItIs() {
        layout.duration = 200;
        const items = [add(40, 20), add(40, 20)];
        tryCompare(layout, "isLaidOut", true);
        items[0].visible = false;
        tryVerify(() => items[1].x > 0 && items[1].x < 46);

        items[0].visible = true;

        compareSoon(items, ["0,0", "46,0"]);
    }

    function test_aNewcomerStandsInItsPlaceAtOnce() {
        layout.duration = 10000;
        add(40, 20);
        tryCompare(layout, "isLaidOut", true);

        const newcomer = add(40, 20);

        tryCompare(newcomer, "x", 46);
    }

    function test_aNewWidthIsNotAnimated() {
        layout.duration = 10000;
        const items = [add(40, 20), add(40, 20), add(40, 20)];
        tryCompare(layout, "isLaidOut", true);

        layout.width = 140;

        tryCompare(items[2], "x", 92);
        compare(items[2].y, 0);
    }

    function test_aChildMayGoWhileItGlides() {
        layout.duration = 200;
        const items = [add(40, 20), add(40, 20), add(40, 20)];
        tryCompare(layout, "isLaidOut", true);
        items[0].visible = false;
        tryVerify(() => items[1].x < 46);

        items[2].destroy();

        compareSoon([items[1]], ["0,0"]);
    }

    function test_whereAListShrinksTheOthersAreKept() {
        const list = createTemporaryObject(lists, testCase, {
            entries: ["one", "two", "three"]
        }) as Item;
        tryCompare(list, "isLaidOut", true);
        const third = list.rows.itemAt(2);

        list.entries = ["one", "three"];

        compare(list.rows.count, 2);
        verify(list.rows.itemAt(1) === third);
        compareSoon([third], ["46,0"]);
    }

    function test_fiveHundredChildrenAreFast() {
        const items = [];
        for (let i = 0; i < 500; ++i)
            items.push(add(20 + i % 30, 20));
        tryCompare(layout, "isLaidOut", true);

        const start = Date.now();
        for (let i = 0; i < 10; ++i) {
            items[0].implicitWidth = 25 + i;
            verify(isPolishScheduled(layout));
            verify(waitForItemPolished(layout));
        }

        const each = (Date.now() - start) / 10;
        verify(each < 50, each + " ms a layout, its frame included");
    }
}
