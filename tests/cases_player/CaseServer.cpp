#include "tests/cases_player/CaseServer.h"

#include <QDeadlineTimer>
#include <QThread>

namespace glimmet {
namespace {

constexpr int longestReading = 10'000; // milliseconds

} // namespace

CaseServer::CaseServer(const AnswerCase &played, std::function<qsizetype()> readAnswers)
    : m_pages(played.pages)
    , m_refusedPage(played.refusedPage())
    , m_readAnswers(std::move(readAnswers))
    , m_server([this](const ReceivedRequest &) { return nextAnswer(); })
    , m_origin(m_server.origin())
{
    if (m_refusedPage == 0)
        m_server.close();
}

ServerAnswer CaseServer::nextAnswer()
{
    const qsizetype page = m_next++;
    // Queued ahead of the answer: the program cannot send its next request before this call has run.
    if (m_refusedPage == page + 1)
        QMetaObject::invokeMethod(this, [this, page] { refuseTheNext(page + 1); }, Qt::QueuedConnection);
    // What no page is meant for is one request too many, which the comparison of requests tells.
    return page < m_pages.size() ? m_pages[page].answer : ServerAnswer{ .status = 500 };
}

void CaseServer::refuseTheNext(qsizetype answersBefore)
{
    // Closing breaks every connection: not before the answer has arrived.
    for (const QDeadlineTimer deadline(longestReading);
        !deadline.hasExpired() && m_readAnswers() < answersBefore;)
        QThread::msleep(1);
    m_server.close();
}

} // namespace glimmet
