#include "prices/CryptoPrice.h"

#include "platform/CurrencyText.h"
#include "platform/Text.h"

#include <QLocale>

#include <cmath>

namespace glimmet {
namespace {

int fractionDigits(double price)
{
    if (price < 1)
        return 4;
    if (price < 100)
        return 2;
    return 0;
}

QString fmt(double price)
{
    return currencyText(price, QStringLiteral("USD"), fractionDigits(price))
        .value_or(u'$' + QString::number(price, 'g', QLocale::FloatingPointShortest));
}

} // namespace

QString CryptoPrice::shortName() const
{
    // An id of dashes only has no piece to show.
    const QStringList pieces = id.split(u'-', Qt::SkipEmptyParts);
    return pieces.isEmpty() ? id : pieces.first();
}

QString CryptoPrice::menuBarString() const
{
    const QString arrow = change < 0 ? QStringLiteral("↓") : QStringLiteral("↑");
    return shortName() + u' ' + fmt(price) + QStringLiteral(" (") + arrow + oneDecimal(std::abs(change))
        + QStringLiteral("%)");
}

} // namespace glimmet
