#include "prices/PriceChart.h"

#include "platform/Text.h"
#include "platform/net/Json.h"

#include <QLocale>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace glimmet::PriceChart {
namespace {

using namespace Qt::StringLiterals;

/// The crypto-currencies that people type bare.
bool isKnownCrypto(const QString &symbol)
{
    static const QSet<QString> knownCrypto{ u"BTC"_s, u"ETH"_s, u"SOL"_s, u"BNB"_s, u"XRP"_s, u"DOGE"_s,
        u"ADA"_s, u"AVAX"_s, u"DOT"_s, u"LINK"_s, u"UNI"_s, u"MATIC"_s, u"SHIB"_s, u"LTC"_s, u"BCH"_s,
        u"ATOM"_s, u"TRX"_s, u"ETC"_s };
    return knownCrypto.contains(symbol);
}

/// A dot segment (RFC 3986, 3.3) means another folder, also when its dots are percent-encoded.
bool isDotSegment(const QString &step)
{
    return step == u"."_s || step == u".."_s;
}

/// The service answers for an unknown symbol without a result. It does so for troubles of its own too, whose
/// error has another code.
bool saysNotFound(const JsonValue &answer)
{
    const auto results = answer["result"].list();
    const bool hasNoResult = answer["result"].isNull() || (results && results->isEmpty());
    return hasNoResult && answer["error"]["code"].text().value_or(u"Not Found"_s) == u"Not Found"_s;
}

QList<double> extractHistory(const JsonValue &chart)
{
    QList<double> history;
    const auto quotes = chart["indicators"]["quote"].listOfObjects();
    if (!quotes)
        return history;
    const auto closes = quotes->first()["close"].list();
    if (!closes)
        return history;
    for (const JsonValue &close : *closes)
        if (const auto price = close.number()) // An hour without trade has none.
            history.append(*price);
    return history;
}

/// Far more than a day has hours, and than a screen has columns.
constexpr qsizetype mostPoints = 20'000;

double changeInPercent(double price, double previous)
{
    return previous > 0 ? (price - previous) / previous * 100 : 0;
}

/// The shortest decimal form that reads back as the same number, with at least one digit behind the point.
QString plainDecimal(double value)
{
    const QString text = QString::number(value, 'f', QLocale::FloatingPointShortest);
    return text.contains(u'.') ? text : text + ".0"_L1;
}

QString signedDecimal(double value)
{
    return (std::signbit(value) ? ""_L1 : "+"_L1) + oneDecimal(value);
}

} // namespace

QString normalize(const QString &symbol)
{
    const QString normalized = trimmedBlanks(symbol.toUpper());
    return isKnownCrypto(normalized) ? normalized + "-USD"_L1 : normalized;
}

std::optional<QByteArray> address(const QByteArray &endpoint, const QString &symbol)
{
    const QString step = normalize(symbol);
    if (!step.isValidUtf16() || isDotSegment(step))
        return std::nullopt;
    return endpoint + "/v8/finance/chart/" + QUrl::toPercentEncoding(step) + "?interval=1h&range=1d";
}

PriceResult parse(const QByteArray &body, const QString &originalSymbol)
{
    const auto document = JsonDocument::readInPlace(body);
    if (!document)
        return PriceFailure::Unreadable;
    const JsonValue answer = document->root()["chart"];
    if (saysNotFound(answer))
        return PriceFailure::NotFound;
    const auto results = answer["result"].listOfObjects();
    if (!results)
        return PriceFailure::Unreadable;
    const JsonValue chart = results->first();
    const auto price = chart["meta"]["regularMarketPrice"].number();
    if (!price)
        return PriceFailure::Unreadable;
    const double previous = chart["meta"]["chartPreviousClose"].number().value_or(*price);
    return CryptoPrice{ originalSymbol, *price, changeInPercent(*price, previous), extractHistory(chart) };
}

QList<double> bounded(const QList<double> &history)
{
    if (history.size() <= mostPoints)
        return history;
    const qsizetype pieces = mostPoints / 2;
    QList<double> points;
    points.reserve(mostPoints);
    for (qsizetype piece = 0; piece < pieces; ++piece) {
        const auto begin = history.begin() + history.size() * piece / pieces;
        const auto end = history.begin() + history.size() * (piece + 1) / pieces;
        const auto [low, high] = std::minmax_element(begin, end);
        points << *std::min(low, high) << *std::max(low, high); // in their order
    }
    return points;
}

QString logLine(const CryptoPrice &price)
{
    return price.id + ": $"_L1 + plainDecimal(price.price) + u' ' + signedDecimal(price.change) + "%  "_L1
        + QString::number(price.history.size()) + "pts"_L1;
}

} // namespace glimmet::PriceChart
