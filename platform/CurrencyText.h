#pragma once

#include <QString>

#include <optional>

namespace glimmet {

/// `amount` in the en_US currency style with exactly `fractionDigits` digits, halves rounded to even on the
/// shortest decimal form: (1234.5, "USD", 2) gives "$1,234.50". Nothing where `currency` cannot be one; the
/// formatter takes any three ASCII characters for a code, and only the first three of a longer text.
std::optional<QString> currencyText(double amount, const QString &currency, int fractionDigits);

} // namespace glimmet
