import QtQuick
import Glimmet

// A text of the panel. What it shows is never markup: the user's words may hold angle brackets.
Text {
    color: Theme.ink
    font.family: Theme.family
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
    Accessible.focusable: false
    // Out of use together with its page, as below a sheet. The toolkit tells assistive programs nothing of that.
    Accessible.ignored: !visible || !(parent?.enabled ?? true)
}
