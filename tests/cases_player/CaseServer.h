#pragma once

#include "tests/cases_player/AnswerCase.h"

#include <QObject>

#include <atomic>

namespace glimmet {

/// The service of one play: gives the case's pages in their order, one to each request. Main thread.
class CaseServer final : public QObject {
public:
    /// `readAnswers` tells how many answers the program has read so far.
    CaseServer(const AnswerCase &played, std::function<qsizetype()> readAnswers);

    QByteArray origin() const { return m_origin; }
    QList<ReceivedRequest> requests() const { return m_server.requests(); }

private:
    ServerAnswer nextAnswer();
    void refuseTheNext(qsizetype answersBefore);

    QList<CasePage> m_pages;
    std::optional<qsizetype> m_refusedPage;
    std::function<qsizetype()> m_readAnswers;
    std::atomic<qsizetype> m_next = 0;
    HttpsServer m_server;
    QByteArray m_origin;
};

} // namespace glimmet
