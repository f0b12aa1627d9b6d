import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    name: "DateTimeSegment"

    Item {
        id: frame
        x: 40
        y: 40
        width: 100
        height: 100

        DateTimeSegment {
            id: segment
            x: 40
            y: 40
            name: "Due date, day"
            text: "05"
            widest: "44"
            number: 5
            lowest: 1
            highest: 31
            padding: 2
        }
    }
    Item {
        id: elsewhere
    }
    SignalSpy {
        id: entries
        target: segment
        signalName: "entered"
    }
    SignalSpy {
        id: steps
        target: segment
        signalName: "stepped"
    }
    SignalSpy {
        id: ends
        target: segment
        signalName: "finished"
    }

    function init() {
        elsewhere.forceActiveFocus();
        segment.number = 5;
        segment.text = "05";
        entries.clear();
        steps.clear();
        ends.clear();
    }

    function test_showsItsText() {
        compareFont(textOf(segment, "05"), 13, 400);
        compareInk(textOf(segment, "05").color, 1);
    }

    function test_isAsWideAsItsWidestText() {
        const width = segment.width;

        segment.text = "1";

        compare(segment.width, width);
        compare(areaOf(textOf(segment, "1"), segment).right, width - 2);
    }

    function test_standsOutWithTheKeyboard() {
        mouseClick(segment);

        verify(segment.activeFocus);
        verify(isColor(textOf(segment, "05").color, Appearance.background));
        verify(all(segment, Rectangle).some(fill => fill.visible && isColor(fill.color, Appearance.accent)));
    }

    function test_isMetIn24PixelsEachWay() {
        verify(segment.width < 24 && segment.height < 24);
        const edge = Qt.point((segment.width - 24) / 2, (segment.height - 24) / 2);
        const middle = Qt.point(segment.width / 2, segment.height / 2);
        for (const [x, y] of [[edge.x + 0.2, middle.y], [middle.x, edge.y + 0.2], [segment.width - edge.x - 0.2, middle.y],
                [middle.x, segment.height - edge.y - 0.2]]) {
            elsewhere.forceActiveFocus();
            mouseClick(frame, segment.x + x, segment.y + y);
            verify(segment.activeFocus, x + ", " + y);
        }
        elsewhere.forceActiveFocus();
        mouseClick(frame, segment.x + edge.x - 1, segment.y + middle.y);
        verify(!segment.activeFocus);
    }

    function test_tellsThatTheKeyboardLeft() {
        segment.forceActiveFocus();
        compare(ends.count, 0);

        elsewhere.forceActiveFocus();

        compare(ends.count, 1);
    }

    function test_isANumberWithANameToAScreenReader() {
        verify(reader.told(segment).includes("SpinBox Due date, day"));
        compare(reader.numbers(segment, "Due date, day"), [1, 5, 31]);
        compare(reader.shownText(segment, "Due date, day"), "05");
    }

    function test_aSetNumberIsAskedForOnceAndNotShownByItself() {
        verify(reader.setNumber(segment, "Due date, day", 20));

        compare(entries.count, 1);
        compare(entries.signalArguments[0][0], 20);
        compare(reader.numbers(segment, "Due date, day"), [1, 5, 31]);
        segment.number = 20;
        compare(reader.numbers(segment, "Due date, day"), [1, 20, 31]);
        compare(entries.count, 1);
    }

    function test_aScreenReaderStepsAndComesIn() {
        verify(reader.act(segment, "Due date, day", "Increase"));
        verify(reader.act(segment, "Due date, day", "Decrease"));
        compare(steps.signalArguments.map(step => step[0]), [1, -1]);

        verify(reader.press(segment, "Due date, day"));
        verify(segment.activeFocus);
    }
}
