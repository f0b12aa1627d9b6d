pragma Singleton
import QtQuick
import Glimmet

// One name for each size, colour and duration that recurs. Sizes are logical pixels, durations milliseconds.
QtObject {
    readonly property color background: Appearance.background
    readonly property color ink: Appearance.ink
    readonly property color accent: Appearance.accent
    readonly property color accentOnInk: Appearance.accentOnInk
    readonly property color knob: Appearance.knob
    readonly property color clear: Qt.alpha(ink, 0)

    readonly property color softText: Appearance.shades.text(0.4)
    readonly property color labelText: Appearance.shades.text(0.38)
    readonly property color helpText: Appearance.shades.text(0.35)
    readonly property color faintText: Appearance.shades.text(0.3)
    readonly property color faintestText: Appearance.shades.text(0.25)
    readonly property color busyText: Appearance.shades.text(0.45)
    readonly property color quietSymbol: Appearance.shades.text(0.2)
    readonly property color cardSymbol: Appearance.shades.text(0.6)
    readonly property color choiceInk: Appearance.shades.text(0.7)

    readonly property color fieldFill: Qt.alpha(ink, 0.04)
    readonly property color rowFill: Qt.alpha(ink, 0.05)
    readonly property color buttonFill: Qt.alpha(ink, 0.07)
    readonly property color cardBorder: Appearance.shades.edge(0.1)
    readonly property color chipBorder: Appearance.shades.edge(0.13)
    readonly property color fieldBorder: Appearance.shades.edge(0.12)
    readonly property color separator: Appearance.shades.edge(0.08)
    readonly property color divider: Appearance.shades.edge(0.1)
    readonly property color switchedOff: Appearance.shades.edge(0.18)
    readonly property color progressTrack: Qt.alpha(ink, 0.18)
    readonly property color chipFill: Qt.alpha(ink, 0.08)
    readonly property color strongFill: Qt.alpha(ink, 0.8)
    readonly property color chartFill: Qt.alpha(accent, 0.25)
    // Where a fieldFill lies on the background, without letting through what else there is.
    readonly property color chartGround: Appearance.shades.ground(0.04)
    readonly property color badgeFill: Qt.alpha(accent, 0.18)
    readonly property color countdownFill: Qt.alpha(accent, 0.12)
    readonly property color savedText: Appearance.shades.accentText(0.8)
    readonly property color circleFill: Qt.alpha(ink, 0.1)
    readonly property color dimming: Qt.rgba(0, 0, 0, 0.4)

    // A fill while the pointer is over it, a quiet step on, and while it is pressed, as a whole at `pressedOpacity`,
    // another one. A fill that covers what is below gives way, since it has no stronger one.
    function answering(fill: color, isHovered: bool, isPressed: bool): color {
        if (!isHovered && !isPressed)
            return fill;
        return Qt.alpha(fill, fill.a > 0.5 ? fill.a - hoverStep : fill.a + (isPressed ? pressStep : hoverStep));
    }

    readonly property real hoverStep: 0.05
    readonly property real pressStep: 0.2

    readonly property string family: "Inter"
    readonly property string monospacedFamily: Appearance.monospacedFamily
    readonly property int regular: 400
    readonly property int medium: 500
    readonly property int semibold: 600
    readonly property int bold: 700

    readonly property int captionSize: 9
    readonly property int smallSize: 10
    readonly property int buttonSize: 11
    readonly property int fieldSize: 12
    readonly property int rowSize: 13
    readonly property int symbolSize: 14
    readonly property int sheetTitleSize: 16

    // A switch of 40 by 22.5 at a scale of 0.8, drawn in its final size to be sharp.
    readonly property real switchWidth: 0.8 * 40
    readonly property real switchHeight: 0.8 * 22.5
    readonly property int switchRoom: 22

    readonly property int panelWidth: 340
    readonly property int panelHeight: 540
    readonly property int panelRadius: 14
    // How far an editor comes that is longer than the panel.
    readonly property int longEditorTravel: 100
    readonly property int cardRadius: 10
    readonly property int rowRadius: 8
    readonly property int buttonRadius: 7
    readonly property int segmentRadius: 4
    readonly property int pageMargin: 20
    readonly property int sheetMargin: 24
    // What stays to be seen of the panel above the highest sheet.
    readonly property int sheetGap: 28
    readonly property int sectionSpacing: 10
    readonly property int editorSpacing: 12
    readonly property int rowSpacing: 6
    readonly property int captionGap: 5
    readonly property int listSpacing: 4
    // Between a symbol and the words beside it.
    readonly property int symbolSpacing: 4
    readonly property int buttonPadding: 10
    readonly property int dotSize: 5
    // Of a page that goes on beyond what is seen of it.
    readonly property int softEdge: 20
    // What an editor's focus rings need around it.
    readonly property int ringRoom: 4
    readonly property int cardPadding: 12
    readonly property real captionSpacing: 1.4
    readonly property int hairline: 1
    readonly property real fieldBorderWidth: 1.5
    readonly property real focusRingWidth: 2
    readonly property real pressedOpacity: Appearance.shades.control(0.6)
    readonly property real disabledOpacity: Appearance.shades.control(0.5)
    readonly property real passedOpacity: Appearance.shades.group(0.4)
    readonly property real withoutPriceOpacity: Appearance.shades.group(0.5)
    // On its strong fill a text needs more to be read.
    readonly property real shownWithoutPriceOpacity: Appearance.shades.group(0.75)
    readonly property real withheldOpacity: Appearance.shades.control(0.25)

    // False where the user wants nothing to move for show; what moves only once then takes no time.
    readonly property bool animates: Appearance.animates
    readonly property int modeDuration: animates ? 180 : 0
    readonly property int editorDuration: animates ? 200 : 0
    readonly property int sheetDuration: animates ? 250 : 0
    readonly property int listDuration: animates ? 200 : 0
    readonly property int chipDuration: animates ? 150 : 0
    readonly property int borderDuration: animates ? 150 : 0
    readonly property bool isAttended: Appearance.isAttended
    readonly property int pulseDuration: 900
    readonly property int pointingDuration: 1200
    readonly property int easeInOut: Easing.InOutQuad
}
