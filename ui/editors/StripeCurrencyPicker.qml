import QtQuick
import Glimmet

CurrencyRow {
    required property TickerViewModel ticker

    currency: ticker.stripeCurrency
    onChosen: code => ticker.chooseStripeCurrency(code)
}
