import QtQuick
import QtTest
import Glimmet

// The picker of a form's date, and where its parts are.
PanelTestCase {
    id: testCase

    // As it is used: the entry is a form's.
    readonly property Component pickers: Component {
        DateTimePicker {
            id: picker

            readonly property DeadlineForm form: DeadlineForm {
                ticker: testCase.world.ticker
            }

            width: 300
            entry: form.date
        }
    }
    readonly property Component panels: Component {
        SettingsPanel {
            width: implicitWidth
            height: implicitHeight
            ticker: testCase.world.ticker
            host: testCase.world.host
        }
    }
    readonly property SignalSpy closings: SignalSpy {
        signalName: "closeRequested"
    }

    property DateTimePicker picker: null

    function init() {
        makeWorld();
        picker = make(pickers);
    }

    function open(locale: string) {
        world.setLocale(locale);
        picker = make(pickers);
    }

    function segments(): var {
        return all(picker, DateTimeSegment);
    }

    function segment(name: string): Item {
        return segments().find(segment => segment.name === "Due date, " + name) ?? null;
    }

    // In the order of reading.
    function shown(): string {
        return segments().map(segment => segment.text).join(" ");
    }

    // With what stands between them, from left to right.
    function line(): string {
        const places = segments().map(segment => segment.parent).sort((one, other) => one.x - other.x);
        return places.map(place => (place.leftPadding > 0 ? " " : "") + place.text + place.separator).join("");
    }

    // By the keyboard, in the field that is read first or where it is.
    function typeLetters(letters: string) {
        for (const letter of letters)
            keyClick(letter);
    }

    function button(): Item {
        return all(picker, PlainButton).find(button => button.Accessible.name === "Due date");
    }

    function calendar(): Item {
        return all(picker, CalendarView)[0] ?? null;
    }

    function day(name: string): Item {
        return all(picker, CalendarDay).find(day => day.name === name) ?? null;
    }

    function focused(): string {
        return testCase.Window.activeFocusItem.Accessible.name;
    }

    function press(keys: var) {
        for (const key of keys)
            keyClick(key);
    }

    function openByKeyboard() {
        button().forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        verify(calendar() !== null);
        verify(waitForRendering(picker));
    }
}
