import QtQuick
import Glimmet

Column {
    id: root

    required property TickerViewModel ticker

    function choose(code: string) {
        ticker.dodoCurrency = code;
        ticker.fetchRevenue();
    }

    spacing: Theme.rowSpacing

    CurrencyRow {
        currency: root.ticker.dodoCurrency
        onChosen: code => root.choose(code)
    }
    Row {
        spacing: Theme.rowSpacing

        BorderedField {
            id: typed
            width: root.width - apply.width - parent.spacing
            leftPadding: 10
            rightPadding: 10
            topPadding: 6
            bottomPadding: 6
            cornerRadius: Theme.buttonRadius
            font.family: Theme.monospacedFamily
            text: root.ticker.dodoCurrency
            Accessible.name: "CURRENCY"
            onAccepted: root.choose(text)
        }
        PlainButton {
            id: apply
            height: typed.height
            leftPadding: 10
            rightPadding: 10
            topPadding: 6
            bottomPadding: 6
            text: "Apply"
            onClicked: root.choose(typed.text)
        }
    }
}
