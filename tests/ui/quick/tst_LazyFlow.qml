pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

// A flow that builds only the rows near what is seen, in a page of 200 that scrolls.
PanelTestCase {
    id: testCase
    name: "LazyFlow"

    Component {
        id: pages

        Item {
            id: sheet

            property alias area: area
            property alias flow: flow
            property alias texts: texts
            property alias before: before
            property var removedRows: []

            width: 340
            height: 200

            ScrollArea {
                id: area
                anchors.fill: parent

                Column {
                    width: area.width

                    Item {
                        id: before
                        width: 340
                        height: 100
                    }
                    LazyFlow {
                        id: flow

                        property int additions: 0

                        width: 340
                        height: implicitHeight
                        spacing: 4
                        onItemRemoved: (index, item) => sheet.removedRows.push(index)
                        model: TextListModel {
                            id: texts
                        }

                        // Its text says how high it is.
                        Rectangle {
                            required property int index
                            required property string entry
                            property real room: Number(entry.split(" ")[0])

                            implicitWidth: 340
                            implicitHeight: room
                            activeFocusOnTab: true
                            Component.onCompleted: flow.additions += flow.isAdding ? 1 : 0
                        }
                    }
                    Item {
                        width: 340
                        height: 400
                        activeFocusOnTab: true
                    }
                }
            }
        }
    }
    readonly property int many: 1000

    property var page: null

    // Rows that are so high, in turn.
    function open(heights: var, count = many) {
        page = make(pages);
        page.texts.entries = Array.from({length: count}, (_, i) => heights[i % heights.length] + " " + i);
        settle();
    }

    function settle() {
        passFrames();
        tryVerify(() => !isPolishScheduled(page.flow));
    }

    function built(): var {
        return Array.from(page.flow.children);
    }

    function rowAt(index: int): Item {
        return page.flow.builtItemAt(index);
    }

    function scrollTo(offset: real) {
        page.area.contentY = offset;
        settle();
    }

    // The rows that are to be seen, by what is there; they leave no gap but the spacing.
    function seen(): var {
        const rows = built().filter(row => {
            const place = areaOf(row, page);
            return place.bottom > 0 && place.y < 200;
        });
        for (let i = 1; i < rows.length; ++i) {
            compare(rows[i].index, rows[i - 1].index + 1);
            compare(rows[i].y, rows[i - 1].y + rows[i - 1].height + 4);
        }
        return rows;
    }

    function test_onlyTheRowsNearWhatIsSeenAreBuilt() {
        open([20]);

        // To 50 beyond the page's end, and the last one.
        compare(built().map(row => row.index), [0, 1, 2, 3, 4, 5, 6, 999]);
        compare(page.flow.count, 1000);
        compare(page.flow.implicitHeight, 1000 * 24 - 4);
    }

    function test_scrollingBuildsWhatComesIntoView_data() {
        return [{tag: "of one height", heights: [20]}, {tag: "of several", heights: [20, 70, 35]}];
    }

    function test_scrollingBuildsWhatComesIntoView(data) {
        open(data.heights);

        for (const offset of [30, 90, 400, 5000, 4990, 12000, 300, 0]) {
            scrollTo(offset);

            const rows = seen();
            verify(areaOf(rows[0], page).y <= Math.max(100 - page.area.contentY, 4));
            verify(areaOf(rows[rows.length - 1], page).bottom >= 200 - 4);
            verify(built().length < 40);
        }
    }

    function test_theLastRowIsReachedByScrolling() {
        open([20, 70, 35]);

        // Each time all that is known of, until nothing more comes.
        for (let i = 0; i < 20; ++i)
            scrollTo(page.area.contentHeight - 600);

        compare(seen().pop().index, 999);
        compare(areaOf(rowAt(999), page).bottom, 200);
    }

    // Where rows above turn out to be of another height than was thought.
    function test_whatIsSeenStaysWhereItIsWhileTheUserScrolls_data() {
        return [{tag: "lower", heights: [20, 20, 20, 20, 90]}, {tag: "higher", heights: [90, 20, 20, 20, 20]}];
    }

    function test_whatIsSeenStaysWhereItIsWhileTheUserScrolls(data) {
        open(data.heights);
        scrollTo(15000);

        for (let i = 0; i < 15; ++i) {
            const row = seen().find(candidate => areaOf(candidate, page).y > 40);
            const index = row.index;
            const y = areaOf(row, page).y;
            page.area.contentY -= 30;
            settle();
            compare(areaOf(rowAt(index), page).y, y + 30);
        }
    }

    function test_theTabKeyReachesRowsThatAreStillToBeBuilt() {
        open([20, 70, 35]);
        rowAt(0).forceActiveFocus();

        // With no frame in between.
        for (let i = 1; i < 60; ++i) {
            keyClick(Qt.Key_Tab);
            verify(rowAt(i)?.activeFocus, i);
        }

        const place = areaOf(rowAt(59), page);
        verify(place.y >= 0 && place.bottom <= 200);
        for (let i = 58; i > 20; --i) {
            keyClick(Qt.Key_Backtab);
            verify(rowAt(i)?.activeFocus, i);
        }
    }

    function test_theTabKeyComesInAtEitherEnd() {
        open([20, 70, 35]);
        rowAt(999).forceActiveFocus();
        verify(areaOf(rowAt(999), page).bottom <= 200);

        keyClick(Qt.Key_Tab);
        verify(!rowAt(999).activeFocus);
        settle();
        keyClick(Qt.Key_Backtab);
        verify(rowAt(999).activeFocus);
        keyClick(Qt.Key_Backtab);
        verify(rowAt(998).activeFocus);
    }

    function test_whatHasTheKeyboardStaysWhereverThePageIsScrolledTo() {
        open([20]);
        rowAt(3).forceActiveFocus();
        settle();
        const row = rowAt(3);

        scrollTo(9000);

        verify(rowAt(3) === row);
        verify(row.activeFocus);
        verify(rowAt(6) === null);
    }

    function test_anyRowCanBeAskedFor() {
        open([20]);

        compare(page.flow.itemAt(500).entry, "20 500");
        compare(page.flow.itemAt(500).y, 500 * 24);
        compare(page.flow.itemAt(1000), null);
        compare(page.flow.itemAt(-1), null);
    }

    function test_keptRowsAreBuiltWhereverTheyAre() {
        open([20]);

        page.flow.kept = [300, 700];
        settle();
        verify(rowAt(300) !== null && rowAt(700) !== null);
        page.flow.kept = [700];
        settle();

        verify(rowAt(300) === null && rowAt(700) !== null);
    }

    function test_aShortListIsBuiltWhole() {
        open([20, 70], 30);
        verify(page.flow.isWhole);
        compare(built().length, 30);

        page.texts.entries = [...page.texts.entries, "20 30"];
        settle();

        verify(!page.flow.isWhole);
        verify(built().length < 30);
    }

    function test_rowsFollowTheModel() {
        open([20]);
        const second = rowAt(1);

        page.texts.entries = ["30 new", ...page.texts.entries];
        settle();
        verify(rowAt(2) === second);
        compare(second.index, 2);
        compare(second.y, 34 + 24);
        page.texts.entries = page.texts.entries.slice(2);
        settle();

        verify(rowAt(0) === second);
        compare(second.index, 0);
        compare(built().map(row => row.index), [0, 1, 2, 3, 4, 5, 6, 998]);
        compare(page.removedRows, [0, 1]);
    }

    function test_aRowThatGrowsMovesThoseBelow() {
        open([20]);

        rowAt(1).room = 50;
        settle();

        compare(rowAt(2).y, 24 + 54);
        compare(page.flow.implicitHeight, 1000 * 24 - 4 + 30);
    }

    function test_onlyNewcomersAreAdditions() {
        open([20]);
        page.flow.additions = 0;
        scrollTo(3000);
        scrollTo(0);
        compare(page.flow.additions, 0);

        page.texts.entries = ["20 new", ...page.texts.entries];
        settle();

        compare(page.flow.additions, 1);
    }

    function test_whatIsAboveMayMoveTheList() {
        open([20]);
        page.before.height = 5000;
        settle();
        compare(built().map(row => row.index), [0, 999]);

        page.before.height = 0;
        settle();

        compare(seen().length, 9);
    }
}
