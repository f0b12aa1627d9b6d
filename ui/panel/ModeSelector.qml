pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker

    readonly property int mode: ticker.mode

    leftPadding: Theme.pageMargin
    rightPadding: Theme.pageMargin
    topPadding: 16
    bottomPadding: 16
    spacing: Theme.sectionSpacing

    SectionLabel {
        text: "DISPLAY MODE"
    }
    ChoiceGroup {
        id: cards
        width: root.width - root.leftPadding - root.rightPadding
        name: "Display mode"
        columns: grid.columns

        Grid {
            id: grid
            width: cards.width
            columns: 2
            spacing: Theme.rowSpacing

            Repeater {
                model: ModeLabels.all

                ModeCard {
                    required property int modelData

                    width: (grid.width - grid.spacing) / 2
                    label: ModeLabels.label(modelData)
                    symbol: ModeLabels.symbol(modelData)
                    selected: root.mode === modelData
                    onTapped: root.ticker.chooseMode(modelData)
                }
            }
        }
    }
}
