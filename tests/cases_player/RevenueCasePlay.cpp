#include "tests/cases_player/RevenueCasePlay.h"

#include "revenue/PolarService.h"
#include "tests/cases_player/CaseServer.h"
#include "tests/cases_player/ExactTotals.h"
#include "tests/cases_player/RequestComparison.h"
#include "tests/cases_player/RevenueAsker.h"
#include "tests/cases_player/SideBySide.h"
#include "tests/support/CapturedLog.h"

#include <algorithm>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The answers that the log tells of.
qsizetype answersIn(const QByteArray &output)
{
    const QList<QByteArray> lines = output.split('\n');
    return std::count_if(lines.begin(), lines.end(),
        [](const QByteArray &line) { return line.startsWith("[glimmet] ") && line.contains(" HTTP "); });
}

/// One figure, asked for.
class Play {
public:
    Play(const AnswerCase &played, const CaseFigure &figure)
        : m_played(played)
        , m_figure(figure)
        , m_server(played, [this] { return answersIn(m_output.written()); })
        , m_asker(played, figure, m_server.origin(), m_output.log())
    {
    }

    bool isDone() const { return m_asker.isDone(); }
    /// With the real service's address in the place of this one's.
    QByteArray output() const
    {
        return m_output.written().replace(m_server.origin(), PolarService::liveEndpoint);
    }
    Differences differences() const
    {
        Differences differences;
        differences.compare(name(), m_figure.text, m_asker.isDone() ? m_asker.text() : u"nothing"_s);
        differences.add(compareRequests(m_played, m_figure.period, m_server.requests()));
        return differences;
    }

private:
    QString name() const { return rawValue(m_figure.period) + u'/' + rawValue(m_figure.metric); }

    const AnswerCase &m_played;
    const CaseFigure &m_figure;
    CapturedLog m_output;
    CaseServer m_server;
    RevenueAsker m_asker;
};

Differences compareTotals(const AnswerCase &played)
{
    Differences differences;
    for (auto expected = played.totals.begin(); expected != played.totals.end(); ++expected) {
        const CaseTotals got = exactTotals(played, expected.key());
        for (auto sum = expected->begin(); sum != expected->end(); ++sum)
            differences.compare(rawValue(expected.key()) + ' '_L1 + sum.key(), QString::number(sum.value()),
                got.contains(sum.key()) ? QString::number(got[sum.key()]) : u"none"_s);
    }
    return differences;
}

} // namespace

Differences playRevenueCase(const AnswerCase &played)
{
    Differences differences = playSideBySide<Play>(played);
    differences.add(compareTotals(played));
    return differences;
}

} // namespace glimmet
