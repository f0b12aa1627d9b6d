#include "platform/InternetDateTime.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>

namespace glimmet {
namespace {

const QRegularExpression &pattern()
{
    static const QRegularExpression expression(
        QStringLiteral(R"(\A([0-9]{4})-([0-9]{2})-([0-9]{2})T([0-9]{2}):([0-9]{2}):([0-9]{2})(\.[0-9]+)?)"
                       R"((?:Z|([+-])([0-9]{2}):([0-9]{2}))\z)"));
    return expression;
}

/// Seconds ahead of UTC; nothing where no clock can be so.
std::optional<int> offset(const QRegularExpressionMatch &match)
{
    const int hours = match.capturedView(9).toInt();
    const int minutes = match.capturedView(10).toInt();
    if (hours > 23 || minutes > 59)
        return std::nullopt;
    const int seconds = hours * 3600 + minutes * 60;
    return match.capturedView(8) == u"-" ? -seconds : seconds;
}

/// Of a clock that shows UTC.
qint64 secondsSinceEpoch(QDate date, QTime time)
{
    constexpr qint64 secondsOfDay = 86'400;
    return QDate(1970, 1, 1).daysTo(date) * secondsOfDay + QTime(0, 0).secsTo(time);
}

} // namespace

std::optional<Instant> parseInternetDateTime(QStringView text)
{
    const QRegularExpressionMatch match = pattern().match(text.toString());
    if (!match.hasMatch())
        return std::nullopt;
    const auto part = [&match](int number) { return match.capturedView(number).toInt(); };
    const QDate date(part(1), part(2), part(3));
    const QTime time(part(4), part(5), part(6));
    const auto ahead = offset(match);
    if (!date.isValid() || !time.isValid() || !ahead)
        return std::nullopt;
    const qint64 seconds = secondsSinceEpoch(date, time) - *ahead;
    const double fraction = match.capturedView(7).toDouble(); // 0 where there is none
    return Instant::fromUnixSeconds(static_cast<double>(seconds)).advanced(fraction);
}

} // namespace glimmet
