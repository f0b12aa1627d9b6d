#pragma once

#include "platform/RawValue.h"

#include <QObject>

#include <array>

namespace glimmet {

namespace TickerModes {
Q_NAMESPACE
/// What the menu bar shows, in the order of the mode cards.
enum class TickerMode { Clock, Quote, Custom, Revenue, Crypto, Deadline };
Q_ENUM_NS(TickerMode)
} // namespace TickerModes

using TickerModes::TickerMode;

template <>
inline constexpr std::array rawValues<TickerMode> = {
    std::pair{ TickerMode::Clock, QStringView(u"Clock") },
    std::pair{ TickerMode::Quote, QStringView(u"Quote") },
    std::pair{ TickerMode::Custom, QStringView(u"Custom") },
    std::pair{ TickerMode::Revenue, QStringView(u"Revenue") },
    std::pair{ TickerMode::Crypto, QStringView(u"Crypto") },
    std::pair{ TickerMode::Deadline, QStringView(u"Deadline") },
};

} // namespace glimmet
