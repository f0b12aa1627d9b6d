#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <utility>

namespace glimmet {

/// The cases of an enumeration with their text raw values, in display order. Each enumeration specialises
/// this beside its declaration with an array of (case, raw value) pairs.
template <typename Enum> inline constexpr auto rawValues = nullptr;

/// The text that stands for a case in lists and chips.
template <typename Enum> QString rawValue(Enum value)
{
    for (const auto &[candidate, text] : rawValues<Enum>) {
        if (candidate == value)
            return text.toString();
    }
    return {};
}

/// The case whose raw value is exactly `text`; none where no case has it.
template <typename Enum> std::optional<Enum> fromRawValue(QStringView text)
{
    for (const auto &[candidate, candidateText] : rawValues<Enum>) {
        if (text == candidateText)
            return candidate;
    }
    return std::nullopt;
}

} // namespace glimmet
