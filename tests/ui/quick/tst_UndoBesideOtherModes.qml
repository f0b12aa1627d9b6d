import QtQuick
import Glimmet

// What was removed in one mode, while the user looks into another.
PanelTestCase {
    id: testCase
    name: "UndoBesideOtherModes"

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
    property int mode
    property var editor

    function init() {
        makeWorld();
        desktop.wish(false, true);
        world.ticker.customQuotes = ["ONE", "TWO"];
        world.ticker.cryptoSymbols = ["ONE", "TWO"];
        world.addDeadline("ONE", 100);
        world.addDeadline("TWO", 200);
        panel = make(panels);
    }

    function lists(): var {
        return [{tag: "quotes", mode: TickerMode.Quote, editor: QuoteOptions},
            {tag: "symbols", mode: TickerMode.Crypto, editor: CryptoOptions},
            {tag: "deadlines", mode: TickerMode.Deadline, editor: DeadlineOptions}];
    }

    function kept(): var {
        if (mode === TickerMode.Quote)
            return world.storedQuotes();
        return mode === TickerMode.Crypto ? world.storedSymbols() : world.storedDeadlines().map(line => line.split(" ")[0]);
    }

    function options(): Item {
        return all(panel, editor)[0] ?? null;
    }

    function entries(): var {
        return all(options(), RemovableBox);
    }

    function enter() {
        world.ticker.mode = mode;
        tryVerify(() => options() !== null);
        passFrames();
    }

    function leave() {
        world.ticker.mode = TickerMode.Clock;
        tryVerify(() => options() === null);
        passFrames();
    }

    function removeOneAndLeave(list: var) {
        mode = list.mode;
        editor = list.editor;
        enter();
        entries()[0].removed();
        leave();
        compare(kept(), ["TWO"]);
    }

    function test_theOfferIsStillThereOnReturning_data() {
        return lists();
    }

    function test_theOfferIsStillThereOnReturning(data) {
        removeOneAndLeave(data);

        enter();

        compare(entries().map(entry => entry.isRemoved), [true, false]);
        mouseClick(buttonOf(entries()[0], "Undo"));
        compare(kept(), ["ONE", "TWO"]);
        verify(textOf(entries()[0], "ONE") !== null);
    }

    function test_theUndoKeysWorkOnReturning_data() {
        return lists();
    }

    function test_theUndoKeysWorkOnReturning(data) {
        removeOneAndLeave(data);

        enter();
        keySequence(StandardKey.Undo);

        compare(kept(), ["ONE", "TWO"]);
    }

    function test_theUndoKeysChangeNothingThatIsOutOfSight_data() {
        return lists();
    }

    function test_theUndoKeysChangeNothingThatIsOutOfSight(data) {
        removeOneAndLeave(data);

        keySequence(StandardKey.Undo);

        compare(kept(), ["TWO"]);
    }

    function test_theOfferEndsAlsoWhileTheUserIsElsewhere_data() {
        return lists();
    }

    function test_theOfferEndsAlsoWhileTheUserIsElsewhere(data) {
        mode = data.mode;
        editor = data.editor;
        enter();
        const undo = options().undo;
        undo.duration = 50;
        removeOneAndLeave(data);
        tryVerify(() => !undo.canUndo);

        enter();

        compare(entries().map(entry => entry.isRemoved), [false]);
    }

    function test_aClearedListCanBePutBackOnReturning_data() {
        return lists().filter(list => list.mode !== TickerMode.Crypto);
    }

    function test_aClearedListCanBePutBackOnReturning(data) {
        mode = data.mode;
        editor = data.editor;
        enter();
        options().undo.clear();
        leave();

        enter();
        mouseClick(buttonOf(options(), "Undo"));

        compare(kept(), ["ONE", "TWO"]);
    }
}
