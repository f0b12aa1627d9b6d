import QtQuick
import Glimmet

CurrencyRow {
    required property TickerViewModel ticker

    currency: ticker.stripeCurrency
    onChosen: code => {
        ticker.stripeCurrency = code;
        ticker.fetchRevenue();
    }
}
