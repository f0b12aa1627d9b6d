#include "tests/cases_player/PriceCasePlay.h"

#include "prices/CryptoService.h"
#include "tests/cases_player/CaseServer.h"
#include "tests/cases_player/CaseWorld.h"
#include "tests/cases_player/RequestComparison.h"
#include "tests/cases_player/Waiting.h"
#include "tests/support/CapturedLog.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

using Record = std::optional<CryptoPrice>;

bool areClose(double one, double other)
{
    return std::abs(one - other) <= 1e-12 * std::max(std::abs(one), std::abs(other));
}

bool areClose(const Record &one, const Record &other)
{
    if (!one || !other)
        return !one && !other;
    return one->id == other->id && areClose(one->price, other->price) && areClose(one->change, other->change)
        && std::equal(one->history.begin(), one->history.end(), other->history.begin(), other->history.end(),
            [](double a, double b) { return areClose(a, b); });
}

QString text(double number)
{
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

QString text(const Record &record)
{
    if (!record)
        return u"no record"_s;
    QStringList history;
    for (const double close : record->history)
        history.append(text(close));
    return record->id + u' ' + text(record->price) + u' ' + text(record->change) + " ["_L1
        + history.join(u' ') + u']';
}

/// What asking for the price brought; nothing where the answer never came.
std::optional<Record> asked(const AnswerCase &played, const QByteArray &origin, DiagnosticLog &log)
{
    CaseWorld world(played);
    CryptoService service(world.http, log, origin);
    std::optional<Record> result;
    service.fetchPrice(played.symbol, [&result](const PriceResult &got) {
        const auto *price = std::get_if<CryptoPrice>(&got);
        result = price ? Record(*price) : Record();
    });
    waitUntil([&result] { return result.has_value(); });
    return result;
}

Differences compareRecord(const CasePrice &expected, const Record &got)
{
    Differences differences;
    if (!areClose(expected.record, got))
        differences.note(u"record"_s, text(expected.record), text(got));
    if (expected.menuBarString)
        differences.compare(
            u"menuBarString"_s, *expected.menuBarString, got ? got->menuBarString() : u"none"_s);
    return differences;
}

} // namespace

Differences playPriceCase(const AnswerCase &played)
{
    CapturedLog output;
    // The log tells nothing of an answer without a price; but a price is one request only.
    const CaseServer server(played, [] { return 0; });
    const auto result = asked(played, server.origin(), output.log());

    Differences differences;
    if (!result)
        differences.note(u"completion"_s, u"a call"_s, u"none"_s);
    differences.add(compareRecord(played.price, result.value_or(std::nullopt)));
    differences.add(compareRequests(played, RevenueMode::AllTime, server.requests()));
    if (played.price.output)
        differences.compare(u"standard output"_s, QString::fromUtf8(*played.price.output),
            QString::fromUtf8(output.written()));
    return differences;
}

} // namespace glimmet
