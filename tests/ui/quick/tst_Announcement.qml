import QtQuick
import QtTest
import Glimmet

PanelTestCase {
    id: testCase
    name: "Announcement"

    Item {
        id: label
        width: 10
        height: 10
        Accessible.role: Accessible.StaticText
        Accessible.name: "label"
    }

    Component {
        id: announcements

        Announcement {
            item: label
            rest: 30
            gap: 0
            text: "at first"
        }
    }

    SignalSpy {
        id: said
        signalName: "said"
    }

    SignalSpy {
        id: otherSaid
        signalName: "said"
    }

    property Announcement news: null

    function init() {
        makeWorld();
        news = createTemporaryObject(announcements, testCase);
        said.target = news;
        said.clear();
    }

    // Until another text has been said that began to rest later, and rests longer.
    function waitLongerThanARest() {
        const other = createTemporaryObject(announcements, testCase, {rest: 2 * news.rest}) as Announcement;
        otherSaid.target = other;
        other.text = "elsewhere";
        otherSaid.wait();
    }

    function words(): var {
        return said.signalArguments.map(list => list[0]);
    }

    function test_aChangedTextIsSaid() {
        news.text = "changed";

        said.wait();
        compare(words(), ["changed"]);
    }

    function test_ofManyChangesOnlyTheLastIsSaid() {
        for (const text of ["one", "two", "three"])
            news.text = text;

        said.wait();
        compare(words(), ["three"]);
    }

    function test_theFirstTextIsNotSaid() {
        news.text = "second";

        said.wait();
        compare(words(), ["second"]);
    }

    function test_aTextThatCameBackIsNotSaidAgain() {
        news.text = "elsewhere";
        news.text = "at first";
        waitLongerThanARest();
        compare(said.count, 0);

        news.text = "at last";
        said.wait();
        news.text = "elsewhere";
        news.text = "at last";
        waitLongerThanARest();

        compare(words(), ["at last"]);
    }

    function test_oneTextKeepsItsDistanceFromTheNext() {
        news.gap = 300;
        news.text = "one";
        said.wait();
        const before = Date.now();
        news.text = "two";

        said.wait();
        compare(words(), ["one", "two"]);
        verify(Date.now() - before >= 250);
    }

    function test_nothingIsSaidOfAnEmptyText() {
        news.text = "";
        waitLongerThanARest();
        compare(said.count, 0);

        news.text = "something";

        said.wait();
        compare(words(), ["something"]);
    }

    function test_silenceDelaysNothing() {
        news.gap = 20000;
        news.text = "";
        waitLongerThanARest();

        news.text = "something";

        said.wait();
        compare(words(), ["something"]);
    }
}
