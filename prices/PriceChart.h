#pragma once

#include "prices/PriceResult.h"

#include <QByteArray>

#include <optional>

/// What a price service is asked and what it answers, as plain functions: they need no network and may be
/// called on any thread.
namespace glimmet::PriceChart {

/// The symbol as the service knows it: upper case, without blanks at both ends, a bare crypto-currency as a
/// pair with the dollar.
QString normalize(const QString &symbol);

/// The address of the symbol's chart at `endpoint`, an https origin: the hourly closes of one day. Nothing
/// where the symbol cannot be one step of a path: it is no valid text, or it would mean another folder.
std::optional<QByteArray> address(const QByteArray &endpoint, const QString &symbol);

/// The price in the service's answer, under the symbol as the user has it; NotFound where the service says
/// that there is no such symbol, Unreadable where the answer holds no price for another reason.
PriceResult parse(const QByteArray &body, const QString &originalSymbol);

/// `history` with fewer points where it has very many, and every low and high that a chart can show.
QList<double> bounded(const QList<double> &history);

/// The line that tells of a price that came: "BTC: $97000.0 +1.3%  24pts".
QString logLine(const CryptoPrice &price);

} // namespace glimmet::PriceChart
