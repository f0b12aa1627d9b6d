import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker

    spacing: Theme.rowSpacing

    CurrencyRow {
        currency: root.ticker.dodoCurrency
        onChosen: code => root.ticker.chooseDodoCurrency(code)
    }
    EntryRow {
        width: root.width
        verticalPadding: 6
        fontFamily: Theme.monospacedFamily
        fieldName: "Currency code"
        value: root.ticker.dodoCurrency
        buttonText: "Apply"
        onEntered: code => root.ticker.chooseDodoCurrency(code)
    }
}
