#include "ui/panel/Wording.h"

#include "core/HostText.h"
#include "ui/controls/LineText.h"

namespace glimmet {

QString Wording::oneLine(const QString &text)
{
    constexpr int lengthSeen = 1000;
    return hostText(text.left(lengthSeen));
}

QString Wording::fieldText(const QString &text)
{
    return singleLine(text);
}

QString Wording::version(const QString &appVersion)
{
    return u'v' + appVersion + QStringLiteral(" ·");
}

QString Wording::usingDefaults(qsizetype count)
{
    return QStringLiteral("Using defaults (%1)").arg(count);
}

QString Wording::problem(const QString &error, const QString &time)
{
    return oneLine(error) + QStringLiteral(" · ") + time;
}

QString Wording::staleness(const QString &display)
{
    return display.startsWith(u'⚠') ? QStringLiteral("The last refresh failed")
                                    : QStringLiteral("No refresh succeeded lately");
}

QString Wording::pricesHelp(int interval)
{
    return QStringLiteral("Works for crypto (BTC, ETH) and stocks (AAPL, TSLA). Price refreshes every %1s.")
        .arg(interval);
}

QString Wording::priceChart(const QString &shortName)
{
    return shortName + QStringLiteral(" price chart");
}

QString Wording::removing(const QString &item)
{
    return QStringLiteral("Remove ") + item;
}

QString Wording::undoing(const QString &action)
{
    return QStringLiteral("Undo ") + action;
}

QString Wording::removed(const QString &item)
{
    return QStringLiteral("Removed %1. Ctrl+Z brings it back.").arg(item);
}

QString Wording::removedAll()
{
    return QStringLiteral("Removed all. Ctrl+Z brings them back.");
}

QString Wording::known(const QString &item)
{
    return item + QStringLiteral(" is there already");
}

QString Wording::entries(int count)
{
    return QString::number(count) + QStringLiteral(" entries");
}

QString Wording::position(int place, int count)
{
    return QStringLiteral("%1 of %2").arg(place).arg(count);
}

QString Wording::active(int count)
{
    return QString::number(count) + QStringLiteral(" active");
}

QString Wording::sentences(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral(". "));
}

QString Wording::dueDateField(DateTimeField field)
{
    switch (field) {
    case DateTimeField::Year:
        return QStringLiteral("Due date, year");
    case DateTimeField::Month:
        return QStringLiteral("Due date, month");
    case DateTimeField::Day:
        return QStringLiteral("Due date, day");
    case DateTimeField::Hour:
        return QStringLiteral("Due date, hour");
    case DateTimeField::Minute:
        return QStringLiteral("Due date, minute");
    case DateTimeField::DayPeriod:
        return QStringLiteral("Due date, AM or PM");
    }
    Q_UNREACHABLE();
}

QString Wording::movedToNow()
{
    return QStringLiteral("That moment is past: it was moved to now.");
}

QString Wording::movedToNearest()
{
    return QStringLiteral("That cannot be: it was moved to the nearest moment.");
}

} // namespace glimmet
