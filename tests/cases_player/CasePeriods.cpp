#include "tests/cases_player/CasePeriods.h"

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The periods that a member's name stands for; none where it is no period's.
QList<RevenueMode> periodsNamed(const QString &name)
{
    QList<RevenueMode> periods;
    for (const auto &[period, text] : rawValues<RevenueMode>)
        if (name == text || name == u"*"_s)
            periods.append(period);
    return periods;
}

} // namespace

void eachPeriod(const CaseObject &object, const std::function<void(RevenueMode, const CaseObject &)> &read)
{
    for (const QString &name : object.names()) {
        const QList<RevenueMode> periods = periodsNamed(name);
        if (periods.isEmpty())
            object.complain(name, u"is no period"_s);
        for (const RevenueMode period : periods)
            read(period, object.object(name));
    }
}

} // namespace glimmet
