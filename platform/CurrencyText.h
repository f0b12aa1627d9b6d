#pragma once

#include <QString>

#include <optional>

namespace glimmet {

/// `amount` in the en_US currency style with exactly `fractionDigits` digits, halves rounded to even on the
/// shortest decimal form: (1234.5, "USD", 2) gives "$1,234.50". Nothing where `currency` is no currency code.
std::optional<QString> currencyText(double amount, const QString &currency, int fractionDigits);

} // namespace glimmet
