#pragma once

#include <QList>
#include <QString>

namespace glimmet {

/// One symbol's latest price.
struct CryptoPrice {
    QString id; ///< the symbol as the user's list has it
    double price = 0; ///< last price, US dollars
    double change = 0; ///< against the previous close, percent
    QList<double> history; ///< hourly closes of the day, oldest first, US dollars

    /// The part of `id` before the first "-".
    QString shortName() const;
    /// The menu-bar text, such as "BTC $97,012 (↑1.3%)".
    QString menuBarString() const;

    friend bool operator==(const CryptoPrice &, const CryptoPrice &) = default;
};

} // namespace glimmet
