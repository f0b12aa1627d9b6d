import QtQuick
import QtTest
import Glimmet
import GlimmetTests

// A page as wide as the panel, a fresh world for each test, and eyes to look with.
TestCase {
    id: testCase

    property TickerFixture world: null
    property real framesPassed: 0
    readonly property AccessibleProbe reader: AccessibleProbe {}
    readonly property LookSwitch desktop: LookSwitch {}
    readonly property ClipboardProbe clipboard: ClipboardProbe {}
    readonly property KeyboardProbe keyboard: KeyboardProbe {}
    readonly property PointerProbe pointer: PointerProbe {}

    width: 340
    height: 540
    visible: true
    when: windowShown

    Component {
        id: worlds

        TickerFixture {}
    }

    NumberAnimation {
        id: frames
        target: testCase
        property: "framesPassed"
        from: 0
        to: 1
        duration: 100
    }

    // For tests with an `init` of their own to call first.
    function makeWorld() {
        failOnWarning(/./);
        // Outlives what the test makes, as the program's ticker outlives its panels.
        world = worlds.createObject(testCase) as TickerFixture;
    }

    // A new item that stands in its place.
    function make(component: Component, properties = {}): Item {
        failOnWarning(/./);
        const item = createTemporaryObject(component, testCase, properties);
        verify(waitForRendering(item));
        return item;
    }

    function init() {
        makeWorld();
    }

    function cleanup() {
        desktop.wish(false, false);
    }

    // All items of a type below `root`, in the order of painting.
    function all(root: Item, type): var {
        let found = [];
        for (let i = 0; i < root.children.length; ++i) {
            const child = root.children[i];
            if (child instanceof type)
                found.push(child);
            found = found.concat(all(child, type));
        }
        return found;
    }

    // The visible text below `root` that reads `words`; null where there is none.
    function textOf(root: Item, words: string): Item {
        return all(root, Text).find(text => text.visible && text.text === words) ?? null;
    }

    function buttonOf(root: Item, words: string): Item {
        return all(root, PlainButton).find(button => button.visible && button.text === words) ?? null;
    }

    // Where `item` is in `root`.
    function areaOf(item: Item, root: Item): rect {
        return item.mapToItem(root, 0, 0, item.width, item.height);
    }

    // What has `root` say its changes.
    function announcementIn(root: Item): Announcement {
        return Array.from(root.resources).find(object => object instanceof Announcement) ?? null;
    }

    // Long enough for whatever moves by itself to have moved.
    function passFrames() {
        frames.restart();
        tryVerify(() => !frames.running);
    }

    function isColor(actual, expected, opacity = 1): bool {
        // Some of the toolkit's properties keep eight bits a channel.
        const near = (one, other) => Math.abs(one - other) < 1 / 255;
        return near(actual.r, expected.r) && near(actual.g, expected.g) && near(actual.b, expected.b)
            && near(actual.a, opacity);
    }

    function compareInk(actual, opacity: real) {
        verify(isColor(actual, Appearance.ink, opacity), actual + " is the ink at " + opacity);
    }

    function compareAccent(actual, opacity: real) {
        verify(isColor(actual, Appearance.accent, opacity), actual + " is the accent at " + opacity);
    }

    function compareFont(text: Item, size: int, weight: int) {
        compare(text.font.family, "Inter");
        compare(text.font.pixelSize, size);
        compare(text.font.weight, weight);
    }

    // Moves the keyboard to the next stop, as the Tab key does.
    function tab(times = 1) {
        for (let i = 0; i < times; ++i)
            keyClick(Qt.Key_Tab);
    }
}
