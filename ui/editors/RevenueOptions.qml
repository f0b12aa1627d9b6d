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
        Grid {
            id: grid
            columns: 2
            spacing: Theme.rowSpacing

            Repeater {
                model: RevenueFaces.providers

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

        Repeater {
            model: RevenueFaces.metrics

            UnifiedChip {
                required property int modelData

                label: RevenueFaces.metricLabel(modelData)
                symbol: RevenueFaces.metricSymbol(modelData)
                selected: root.metric === modelData
                Accessible.name: RevenueFaces.metricName(modelData)
                onTapped: root.ticker.revenueMetric = modelData
            }
        }
    }
    ChipRow {
        title: "WINDOW"
        note: RevenueFaces.periodNote(root.provider)

        Repeater {
            model: RevenueFaces.periods

            UnifiedChip {
                required property int modelData

                label: RevenueFaces.periodLabel(modelData)
                symbol: RevenueFaces.periodSymbol(modelData)
                selected: root.period === modelData
                onTapped: root.ticker.chooseRevenueMode(modelData)
            }
        }
    }
    RefreshRow {
        width: root.width
        ticker: root.ticker
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
