#include "tests/cases_player/FatalCasePlay.h"

#include "platform/DiagnosticLog.h"
#include "revenue/PolarService.h"
#include "tests/cases_player/CaseServer.h"
#include "tests/cases_player/RequestComparison.h"
#include "tests/cases_player/RevenueAsker.h"
#include "tests/cases_player/SideBySide.h"
#include "tests/cases_player/Waiting.h"

#include <QCoreApplication>
#include <QProcess>

#include <csignal>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// One figure, asked for by a process of its own; the service is here, where its requests outlive that.
class FatalPlay {
public:
    FatalPlay(const AnswerCase &played, const CaseFigure &figure, const QString &path)
        : m_played(played)
        , m_figure(figure)
        , m_server(played, [] { return 0; })
    {
        m_process.start(QCoreApplication::applicationFilePath(),
            { u"--ask"_s, path, rawValue(figure.period), rawValue(figure.metric),
                QString::fromUtf8(m_server.origin()) });
    }

    bool isDone() const { return m_process.state() == QProcess::NotRunning; }
    QByteArray output()
    {
        return m_process.readAllStandardOutput().replace(m_server.origin(), PolarService::liveEndpoint);
    }
    Differences differences()
    {
        Differences differences;
        const QByteArray errors = m_process.readAllStandardError();
        if (!wasAborted() || !errors.contains("[glimmet] fatal: "))
            differences.note(rawValue(m_figure.period) + u'/' + rawValue(m_figure.metric), u"a fatal end"_s,
                u"exit status %1, %2"_s.arg(m_process.exitCode()).arg(QString::fromUtf8(errors)));
        differences.add(compareRequests(m_played, m_figure.period, m_server.requests()));
        return differences;
    }

private:
    bool wasAborted() const
    {
        return m_process.exitStatus() == QProcess::CrashExit && m_process.exitCode() == SIGABRT;
    }

    const AnswerCase &m_played;
    const CaseFigure &m_figure;
    CaseServer m_server;
    QProcess m_process;
};

} // namespace

Differences playFatalCase(const AnswerCase &played, const QString &path)
{
    return playSideBySide<FatalPlay>(played, path);
}

int askForFigure(const QStringList &arguments)
{
    const auto read = readCase(arguments.value(0));
    const auto *played = std::get_if<AnswerCase>(&read);
    const auto period = fromRawValue<RevenueMode>(arguments.value(1));
    const auto metric = fromRawValue<RevenueMetric>(arguments.value(2));
    if (played == nullptr || !period || !metric)
        return 2;
    DiagnosticLog log;
    const RevenueAsker asker(*played, { *period, *metric, {} }, arguments.value(3).toUtf8(), log);
    return waitUntil([&asker] { return asker.isDone(); }) ? 0 : 1;
}

} // namespace glimmet
