import QtQuick
import Glimmet

PanelTestCase {
    id: testCase
    name: "ModeOptions"

    Component {
        id: blocks

        ModeOptions {
            width: 340
            ticker: testCase.world.ticker
            stage: sheets
        }
    }

    SheetStage {
        id: sheets
        anchors.fill: parent
    }

    property ModeOptions options: null

    function init() {
        makeWorld();
        options = make(blocks);
    }

    function editors(type): var {
        return all(options, type);
    }

    function slot(index: int): Item {
        return all(options, EditorSlot)[index];
    }

    function test_isPaddedBelowItsLabel() {
        const label = areaOf(textOf(options, "OPTIONS"), options);
        const editor = areaOf(editors(ClockOptions)[0], options);

        compare(label.x, 20);
        compare(label.y, 0);
        compare(editor.y - label.bottom, 10);
        compare(editor.x, 20);
        compare(editor.width, 300);
        compare(options.height - editor.bottom, 16);
    }

    function test_showsTheEditorOfTheMode_data() {
        return [
            {tag: "clock", mode: TickerMode.Clock, expected: [1, 0, 0, 0, 0, 0]},
            {tag: "quote", mode: TickerMode.Quote, expected: [0, 1, 0, 0, 0, 0]},
            {tag: "custom", mode: TickerMode.Custom, expected: [0, 0, 1, 0, 0, 0]},
            {tag: "revenue", mode: TickerMode.Revenue, expected: [0, 0, 0, 1, 0, 0]},
            {tag: "crypto", mode: TickerMode.Crypto, expected: [0, 0, 0, 0, 1, 0]},
            {tag: "deadline", mode: TickerMode.Deadline, expected: [0, 0, 0, 0, 0, 1]}
        ];
    }

    function test_showsTheEditorOfTheMode(row) {
        world.ticker.mode = row.mode;

        tryVerify(() => editors(ClockOptions).length === row.expected[0]
            && editors(QuoteOptions).length === row.expected[1]
            && editors(CustomTextOption).length === row.expected[2]
            && editors(RevenueOptions).length === row.expected[3]
            && editors(CryptoOptions).length === row.expected[4]
            && editors(DeadlineOptions).length === row.expected[5]);
        verify(options.visible);
    }

    function test_theFirstEditorIsThereAtOnce() {
        compare(slot(0).presence, 1);
        compare(slot(0).y, 0);
    }

    function test_aNewEditorComesInFromTheTopEdge() {
        world.ticker.mode = TickerMode.Custom;

        const entering = slot(2);
        verify(entering.opacity < 1);
        verify(entering.y < 0);
        tryCompare(entering, "opacity", 1);
        compare(entering.y, 0);
    }

    // Grows upwards out of its own place, as far as it is high.
    function test_anEditorThatComesOrGoesNeverCrossesWhatIsAbove() {
        const above = () => {
            const picture = grabImage(options);
            const label = areaOf(textOf(options, "OPTIONS"), options);
            let ink = 0;
            for (let y = label.bottom; y < label.bottom + 6; ++y) {
                for (let x = 20; x < 320; x += 2)
                    ink += isColor(picture.pixel(x, y), picture.pixel(2, 2)) ? 0 : 1;
            }
            return ink;
        };
        world.ticker.mode = TickerMode.Revenue;
        let isOnItsWay = 0;
        while (slot(3).presence < 1) {
            isOnItsWay += slot(3).presence > 0 ? 1 : 0;
            compare(above(), 0);
            waitForRendering(options, 50);
        }

        verify(isOnItsWay > 0);
    }

    function test_theFocusRingOfAnEditorIsWhole() {
        world.ticker.mode = TickerMode.Clock;
        const toggle = all(options, GlimmetToggle)[0];
        toggle.forceActiveFocus(Qt.TabFocusReason);
        const place = areaOf(toggle, options);
        const picture = grabImage(options);

        for (const x of [place.x - 2, place.right + 1])
            verify(isColor(picture.pixel(x, place.y + 20), Appearance.accent), x);
    }

    function test_editorsChangeAtOnceWhereLessMotionIsWished() {
        desktop.wish(false, true);

        world.ticker.mode = TickerMode.Custom;

        compare(slot(2).opacity, 1);
        compare(slot(2).y, 0);
        compare(editors(ClockOptions).length, 0);
    }

    function test_theOldEditorFadesAndTakesNoMoreClicks() {
        world.ticker.mode = TickerMode.Custom;

        verify(!slot(0).enabled);
        tryCompare(slot(0), "opacity", 0);
        tryVerify(() => editors(ClockOptions).length === 0);
    }

    function test_anEditorThatLeftTakesNoRoom() {
        world.ticker.mode = TickerMode.Custom;
        tryVerify(() => editors(ClockOptions).length === 0);
        tryCompare(slot(2), "presence", 1);

        // The height follows with the next frame.
        tryVerify(() => options.height - areaOf(editors(CustomTextOption)[0], options).bottom === 16);
    }

    function test_anEditorLongerThanThePanelTakesNoRoomEither() {
        const height = options.height;
        for (let i = 0; i < 40; ++i)
            world.ticker.addQuote("quote " + i);
        world.ticker.mode = TickerMode.Quote;
        tryVerify(() => options.height > height + Theme.panelHeight);

        world.ticker.mode = TickerMode.Clock;

        tryCompare(options, "height", height);
    }

    function test_aTypedQuoteIsForgottenWhenItsEditorGoes() {
        world.ticker.mode = TickerMode.Quote;
        tryVerify(() => editors(QuoteOptions).length === 1);
        all(editors(QuoteOptions)[0], BorderedField)[0].text = "half a quo";
        world.ticker.mode = TickerMode.Clock;
        tryVerify(() => editors(QuoteOptions).length === 0);

        world.ticker.mode = TickerMode.Quote;

        tryVerify(() => editors(QuoteOptions).length === 1);
        compare(all(editors(QuoteOptions)[0], BorderedField)[0].text, "");
    }
}
