import QtQuick
import Glimmet

// A price's curve, whose highest point ends where its name and its value stand over it.
Item {
    id: root

    required property string shortName
    required property string menuBarString
    required property list<real> history
    // When the price came.
    property string arrival

    implicitHeight: 80

    PriceCurveImage {
        anchors.bottom: parent.bottom
        width: root.width
        height: 72
        history: root.history
        lineColor: Theme.accent
        areaColor: Theme.chartFill
        lineWidth: 1.5
        Accessible.role: Accessible.Graphic
        Accessible.name: Wording.priceChart(root.shortName)
        Accessible.ignored: !(parent?.enabled ?? true)
    }
    Repeater {
        model: [name, value]

        // The curve passes behind what is to be read.
        RoundedBox {
            required property InkText modelData

            x: modelData.x - radius
            width: modelData.width + 2 * radius
            height: modelData.y + modelData.height
            radius: 3
            color: Theme.chartGround
        }
    }
    InkText {
        id: name
        x: 10
        y: 1
        text: root.shortName
        font.pixelSize: Theme.buttonSize
        font.weight: Theme.semibold
    }
    InkText {
        id: value
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.baseline: name.baseline
        text: root.menuBarString
        color: Theme.choiceInk
        font.pixelSize: Theme.smallSize
    }
    // Where prices have fallen, the curve ends here: it does not run through the words.
    RoundedBox {
        anchors.right: parent.right
        anchors.rightMargin: 10 - 6
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
        width: Math.ceil(arrival.implicitWidth) + 2 * 6
        height: Math.ceil(arrival.implicitHeight)
        radius: Theme.segmentRadius
        color: Theme.chartGround
        visible: root.arrival.length > 0

        InkText {
            id: arrival
            // Not centered, which rounds: by a pixel more or less as the words are wide.
            x: 6
            text: root.arrival
            color: Theme.softText
            font.pixelSize: Theme.captionSize
        }
    }
}
