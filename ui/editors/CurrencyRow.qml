pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

ChipRow {
    id: root

    required property string currency

    signal chosen(string code)

    title: "CURRENCY"
    group: "Currency"

    SymbolImage {
        anchors.verticalCenter: parent.verticalCenter
        name: "creditcard"
        size: Theme.buttonSize
        color: Theme.softText
    }
    Repeater {
        model: RevenueLabels.currencies

        UnifiedChip {
            required property string modelData

            label: modelData
            selected: root.currency === modelData
            onTapped: root.chosen(modelData)
        }
    }
}
