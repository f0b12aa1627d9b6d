import QtQuick
import Glimmet

// Lists of a thousand entries in the panel, of which only those near what is seen are built.
PanelTestCase {
    id: testCase
    name: "LongLists"

    readonly property Component panels: Component {
        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }
    readonly property int many: 1000
    readonly property string words: "a word by itself or with others that break the line and go on "

    property SettingsPanel panel: null
    property string list

    function lists(): var {
        return [{tag: "quotes"}, {tag: "symbols"}, {tag: "deadlines"}];
    }

    // Their names are "ENTRY 0", "ENTRY 1" and so on; of the quotes some have several lines.
    function open(kind: string, count = many) {
        list = kind;
        desktop.wish(false, true);
        const names = Array.from({length: count}, (_, i) => "ENTRY " + i);
        if (kind === "quotes")
            world.ticker.customQuotes = names.map((name, i) => (name + " " + words.slice(0, i % 30) + words.repeat(i % 4)).trim());
        else if (kind === "symbols")
            world.ticker.cryptoSymbols = names.map((name, i) => name + "X".repeat(i % 7));
        else
            world.setDeadlines(names);
        world.ticker.mode = {quotes: TickerMode.Quote, symbols: TickerMode.Crypto, deadlines: TickerMode.Deadline}[kind];
        panel = make(panels);
        settle();
    }

    function settle() {
        passFrames();
        tryVerify(() => !isPolishScheduled(rows()));
    }

    function rows(): Item {
        return all(panel, LazyFlow)[0];
    }

    function area(): Item {
        return all(panel, ScrollArea)[0];
    }

    function built(): var {
        return all(panel, RemovableBox);
    }

    function entry(index: int): Item {
        return rows().builtItemAt(index);
    }

    function scrollTo(index: int) {
        const top = rows().mapToItem(area().contentItem, 0, rows().itemAt(index).y).y;
        area().contentY = top - 100;
        settle();
    }

    function isInView(item: Item): bool {
        const place = areaOf(item, area());
        return place.y >= 0 && place.bottom <= area().height;
    }

    function removeButton(item: Item): Item {
        return all(item, PlainButton).find(button => button.symbol.startsWith("xmark"));
    }

    function test_onlyWhatIsNearIsBuilt_data() {
        return lists();
    }

    function test_onlyWhatIsNearIsBuilt(data) {
        open(data.tag);

        verify(built().length < 120, built().length);
        compare(rows().count, many);
        verify(area().contentHeight > 3000);
    }

    function test_theListHasItsHeightBeforeItIsBuilt_data() {
        return lists();
    }

    function test_theListHasItsHeightBeforeItIsBuilt(data) {
        open(data.tag, 90);
        verify(built().length < 90);
        const height = rows().implicitHeight;

        for (let i = 0; i < 90; ++i)
            rows().itemAt(i);

        compare(built().length, 90);
        compare(rows().implicitHeight, height);
    }

    function test_scrollingShowsEachEntryInItsPlace_data() {
        return lists();
    }

    function test_scrollingShowsEachEntryInItsPlace(data) {
        open(data.tag);

        for (const index of [40, 500, 480, 998, 3]) {
            scrollTo(index);
            for (const i of [index - 1, index, index + 1]) {
                verify(entry(i) !== null, i);
                verify(entry(i).subject.startsWith("ENTRY " + i));
            }
            compare(areaOf(entry(index), area()).y, 100);
        }
    }

    function test_theTabKeyLeadsThroughAllOfThem_data() {
        return lists();
    }

    function test_theTabKeyLeadsThroughAllOfThem(data) {
        open(data.tag);
        entry(0).takeKeyboard();

        for (let i = 1; i < 150; ++i) {
            tab();
            verify(entry(i)?.hasKeyboard, i);
            verify(isInView(entry(i)), i);
        }
    }

    function test_anEntryThatIsThereIsScrolledTo() {
        open("quotes");
        const known = world.ticker.customQuotes[700];
        const field = all(panel, BorderedField)[0];

        field.text = known;
        field.accepted();

        settle();
        compare(entry(700).quote, known);
        verify(isInView(entry(700)));
        compare(world.ticker.customQuotes.length, many);
    }

    function test_whatWasRemovedCanBePutBackAfterScrolling_data() {
        return lists();
    }

    function test_whatWasRemovedCanBePutBackAfterScrolling(data) {
        open(data.tag);
        scrollTo(500);
        const name = entry(500).subject;
        mouseClick(removeButton(entry(500)));
        verify(entry(500).isRemoved);

        scrollTo(50);
        scrollTo(500);
        mouseClick(buttonOf(entry(500), "Undo"));

        verify(!entry(500).isRemoved);
        compare(entry(500).subject, name);
        compare(rows().count, many);
    }

    function test_theUndoKeysPutBackWhatIsOutOfView() {
        open("symbols");
        scrollTo(500);
        mouseClick(removeButton(entry(500)));
        area().contentY = 0;
        settle();
        const height = rows().implicitHeight;

        keySequence(StandardKey.Undo);
        settle();

        compare(world.ticker.cryptoSymbols.length, many);
        scrollTo(500);
        verify(!entry(500).isRemoved);
        verify(rows().implicitHeight >= height);
    }

    function test_theKeyboardStaysNearWhatWasRemoved_data() {
        return lists();
    }

    function test_theKeyboardStaysNearWhatWasRemoved(data) {
        open(data.tag);
        scrollTo(500);
        entry(500).takeKeyboard();

        keyClick(list === "symbols" ? Qt.Key_Space : Qt.Key_Delete);

        verify(entry(500).isRemoved);
        verify(entry(501).hasKeyboard);
    }

    function test_anEntryFarDownCanBeEdited_data() {
        return [{tag: "quotes"}, {tag: "deadlines"}];
    }

    function test_anEntryFarDownCanBeEdited(data) {
        open(data.tag);
        scrollTo(600);
        entry(600).takeKeyboard();
        keyClick(Qt.Key_F2);
        settle();

        verify(entry(600).isEditing);
        verify(isInView(all(entry(600), RowEditor)[0]));
        for (const letter of "NEW")
            keyClick(letter);
        keyClick(Qt.Key_Return);
        settle();

        verify(entry(600).subject.toLowerCase() === "new", entry(600).subject);
        verify(entry(600).hasKeyboard);
    }

    function test_whatIsEditedKeepsItsEditorWhileThePageIsScrolled() {
        open("quotes");
        entry(2).edit();
        keyClick(Qt.Key_N);

        area().contentY = 9000;
        settle();
        area().contentY = 200;
        settle();

        verify(entry(2).isEditing);
        compare(all(entry(2), BorderedField)[0].text, "n");
    }

    function test_countdownsAreRightWhenTheyComeIntoView() {
        open("deadlines");
        world.advance(60);

        scrollTo(500);

        // Each is a minute after the one before.
        const countdown = index => entry(index).countdown;
        compare(countdown(500), "8h 20m");
        compare(countdown(501), "8h 21m");
        world.advance(60);
        compare(countdown(500), "8h 19m");
    }

    function test_theOneOnShowIsBuiltWhereverItIs() {
        open("symbols");
        world.ticker.currentCryptoIndex = 700;
        settle();

        verify(entry(700).shown);
        verify(!entry(0).shown);
    }

    function test_entriesThatComeIntoViewDoNotFadeIn() {
        open("symbols");
        desktop.wish(false, false);

        area().contentY = 3000;
        waitForRendering(panel);

        for (const chip of built())
            compare(chip.opacity, 1);
    }

    function test_aScreenReaderHearsHowManyThereAreAndWhichOneItIs_data() {
        return [
            {tag: "quotes", name: "Your quotes"},
            {tag: "symbols", name: "Symbols"},
            {tag: "deadlines", name: "Deadlines"}
        ];
    }

    function test_aScreenReaderHearsHowManyThereAreAndWhichOneItIs(data) {
        open(data.tag);

        verify(reader.told(panel).includes("List " + data.name));
        compare(reader.description(panel, data.name), "1000 entries");
        scrollTo(500);
        const told = list === "symbols" ? "Remove " + entry(500).subject : entry(500).subject;
        verify(reader.description(panel, told).startsWith("501 of 1000"), reader.description(panel, told));
    }

    function test_aShortListTellsNoCount() {
        open("quotes", 3);

        verify(!reader.told(panel).some(line => line.startsWith("List ")));
        verify(reader.description(panel, entry(0).subject).startsWith("Return edits it"));
    }

    function test_aLongEditorComesFromNear() {
        open("quotes");
        world.ticker.mode = TickerMode.Clock;
        passFrames();
        desktop.wish(false, false);

        world.ticker.mode = TickerMode.Quote;
        const entering = all(panel, EditorSlot)[1];
        compare(entering.y, -100);
        verify(built().length < 40, built().length);
        tryCompare(entering, "y", 0);
    }
}
