#include "ui/editors/ModeLabels.h"

#include "ui/editors/CaseNumbers.h"

namespace glimmet {

QList<int> ModeLabels::all()
{
    return caseNumbers<TickerMode>();
}

QString ModeLabels::label(int mode)
{
    return rawValue(static_cast<TickerMode>(mode));
}

QString ModeLabels::symbol(int mode)
{
    switch (static_cast<TickerMode>(mode)) {
    case TickerMode::Clock:
        return QStringLiteral("clock");
    case TickerMode::Quote:
        return QStringLiteral("text.bubble");
    case TickerMode::Custom:
        return QStringLiteral("pencil");
    case TickerMode::Revenue:
        return QStringLiteral("dollarsign.circle");
    case TickerMode::Crypto:
        return QStringLiteral("chart.line.uptrend.xyaxis");
    case TickerMode::Deadline:
        return QStringLiteral("timer");
    }
    return {};
}

} // namespace glimmet
