#include "ui/editors/PriceLabels.h"

namespace glimmet {

QList<int> PriceLabels::intervals()
{
    return { 5, 10, 30, 60 };
}

QString PriceLabels::intervalLabel(int seconds)
{
    return QString::number(seconds) + u's';
}

QString PriceLabels::trouble(std::optional<PriceFailure> failure)
{
    if (!failure)
        return {};
    switch (*failure) {
    case PriceFailure::NoNetwork:
        return QStringLiteral("No network");
    case PriceFailure::NoAnswer:
        return QStringLiteral("No answer");
    case PriceFailure::NotFound:
        return QStringLiteral("Not found");
    case PriceFailure::Unreadable:
        return QStringLiteral("Unreadable answer");
    }
    Q_UNREACHABLE();
}

QString PriceLabels::asOf(const QString &time)
{
    return QStringLiteral("as of ") + time;
}

} // namespace glimmet
