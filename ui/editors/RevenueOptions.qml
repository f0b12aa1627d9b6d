pragma ComponentBehavior: Bound
import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker
    required property SheetStage stage

    readonly property int provider: ticker.revenueProvider
    readonly property int metric: ticker.revenueMetric
    readonly property int period: ticker.revenueMode

    spacing: Theme.editorSpacing

    Column {
        spacing: Theme.rowSpacing

        SectionLabel {
            text: "PROVIDER"
        }
        ChoiceGroup {
            name: "Platform"
            columns: grid.columns

            Grid {
                id: grid
                columns: 2
                spacing: Theme.rowSpacing

                Repeater {
                    model: RevenueLabels.providers

                    ProviderChip {
                        required property int modelData

                        width: (root.width - grid.spacing) / 2
                        provider: modelData
                        selected: root.provider === modelData
                        onTapped: root.ticker.chooseRevenueProvider(modelData)
                    }
                }
            }
        }
    }
    EditorLoader {
        width: root.width
        active: root.provider === RevenueProvider.Stripe
        visible: active
        ticker: root.ticker
        editor: "StripeCurrencyPicker.qml"
    }
    EditorLoader {
        width: root.width
        active: root.provider === RevenueProvider.Dodo
        visible: active
        ticker: root.ticker
        editor: "DodoCurrencyPicker.qml"
    }
    ChipRow {
        title: "METRIC"
        group: "Figure"

        Repeater {
            model: RevenueLabels.metrics

            UnifiedChip {
                required property int modelData

                label: RevenueLabels.metricLabel(modelData)
                symbol: RevenueLabels.metricSymbol(modelData)
                selected: root.metric === modelData
                Accessible.name: RevenueLabels.metricName(modelData)
                onTapped: root.ticker.revenueMetric = modelData
            }
        }
    }
    ChipRow {
        title: "WINDOW"
        group: "Period"
        note: RevenueLabels.periodNote(root.provider)

        Repeater {
            model: RevenueLabels.periods

            UnifiedChip {
                required property int modelData

                label: RevenueLabels.periodLabel(modelData)
                symbol: RevenueLabels.periodSymbol(modelData)
                selected: root.period === modelData
                onTapped: root.ticker.chooseRevenueMode(modelData)
            }
        }
    }
    Column {
        spacing: Theme.captionGap

        RefreshRow {
            width: root.width
            ticker: root.ticker
        }
        InkText {
            id: problem
            width: root.width
            text: lastProblem.text
            color: Theme.choiceInk
            font.pixelSize: Theme.smallSize
            wrapMode: Text.Wrap
            visible: text.length > 0

            FetchProblemText {
                id: lastProblem
                ticker: root.ticker
                provider: root.provider
            }
            Announcement {
                item: problem
                text: problem.text
            }
        }
    }
    PlainButton {
        horizontalPadding: 8
        verticalPadding: 6
        text: "API Keys"
        symbol: "key.fill"
        symbolSize: Theme.captionSize
        font.pixelSize: Theme.smallSize
        onClicked: root.stage.present("APIKeysSheet.qml", {
            ticker: root.ticker
        })
    }
}
