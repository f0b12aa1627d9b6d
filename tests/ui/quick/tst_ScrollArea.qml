import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "ScrollArea"

    Component {
        id: pages

        Item {
            width: 340
            height: 200

            ScrollArea {
                id: scrolled

                property int presses: 0

                anchors.fill: parent

                Column {
                    width: scrolled.width

                    Repeater {
                        model: 10

                        PlainButton {
                            width: 340
                            height: 50
                            onClicked: ++scrolled.presses
                        }
                    }
                }
            }
        }
    }

    property ScrollArea page: null

    function init() {
        makeWorld();
        page = all(make(pages), ScrollArea)[0] as ScrollArea;
    }

    function edges(): var {
        return all(page, SoftEdge).map(edge => edge.visible);
    }

    function test_theMouseDragsNothing() {
        mousePress(page, 170, 150);
        for (let y = 150; y > 20; y -= 10)
            mouseMove(page, 170, y);
        mouseRelease(page, 170, 20);

        compare(page.contentY, 0);
    }

    function test_aPressThatMovesWithinAControlStillChooses() {
        mousePress(page, 170, 140);
        for (let y = 140; y >= 104; y -= 4)
            mouseMove(page, 170, y);
        mouseRelease(page, 170, 104);

        compare(page.presses, 1);
    }

    function test_aPressThatLeavesAControlChoosesNothing() {
        mousePress(page, 170, 140);
        mouseMove(page, 170, 80);
        mouseRelease(page, 170, 80);

        compare(page.presses, 0);
    }

    function test_aWheelScrolls() {
        mouseWheel(page, 170, 100, 0, -120);

        tryVerify(() => page.contentY > 0);
    }

    function test_aFingerDrags() {
        const finger = touchEvent(page);
        finger.press(0, page, 170, 180).commit();
        for (let y = 180; y > 40; y -= 10)
            finger.move(0, page, 170, y).commit();
        finger.release(0, page, 170, 40).commit();

        tryVerify(() => page.contentY > 50);
        compare(page.presses, 0);
    }

    function test_anEdgeIsSoftWhereThePageGoesOn() {
        compare(edges(), [false, true]);
        page.contentY = 100;
        compare(edges(), [true, true]);
        page.contentY = 300;
        compare(edges(), [true, false]);
    }

    function test_theSoftEdgeFadesIntoTheGround() {
        page.contentY = 100;
        const picture = grabImage(page);

        verify(isColor(picture.pixel(170, 0), Appearance.background));
        verify(isColor(picture.pixel(170, 199), Appearance.background));
        verify(!isColor(picture.pixel(170, 120), Appearance.background));
    }

    function test_theSoftEdgeBelowLeavesThePanelsRoundCornersOut() {
        page.contentY = 100;
        const below = all(page, SoftEdge)[1];

        compare(below.mapToItem(page, 0, 0).x, Theme.panelRadius);
        compare(below.width, page.width - 2 * Theme.panelRadius);
    }

    function test_whatGetsTheKeyboardStandsClearOfTheSoftEdges() {
        const buttons = all(page, PlainButton);

        buttons[5].forceActiveFocus(Qt.TabFocusReason);
        verify(areaOf(buttons[5], page).bottom <= page.height - Theme.softEdge);
        buttons[2].forceActiveFocus(Qt.TabFocusReason);

        verify(areaOf(buttons[2], page).top >= Theme.softEdge);
    }

    function test_aPageThatFitsHasNoSoftEdges() {
        page.parent.height = 500;

        compare(edges(), [false, false]);
    }
}
