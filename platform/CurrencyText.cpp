#include "platform/CurrencyText.h"

#include <unicode/currunit.h>
#include <unicode/numberformatter.h>

namespace glimmet {

std::optional<QString> currencyText(double amount, const QString &currency, int fractionDigits)
{
    if (currency.isEmpty()) // CurrencyUnit takes the empty text for "no currency" instead of refusing it.
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    const icu::CurrencyUnit unit(reinterpret_cast<const char16_t *>(currency.utf16()), status);
    if (U_FAILURE(status))
        return std::nullopt;
    const icu::UnicodeString text = icu::number::NumberFormatter::withLocale(icu::Locale("en_US"))
                                        .unit(unit)
                                        .precision(icu::number::Precision::fixedFraction(fractionDigits))
                                        .roundingMode(UNUM_ROUND_HALFEVEN)
                                        .formatDouble(amount, status)
                                        .toString(status);
    if (U_FAILURE(status))
        return std::nullopt;
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

} // namespace glimmet
