#pragma once

#include "core/TickerViewModel.h"
#include "revenue/RevenueServices.h"
#include "tests/cases_player/CaseWorld.h"

namespace glimmet {

/// The program with a revenue case's settings that has asked for one figure.
class RevenueAsker {
public:
    /// Asks the service at `origin`. `log` outlives the asker.
    RevenueAsker(
        const AnswerCase &played, const CaseFigure &figure, const QByteArray &origin, DiagnosticLog &log);

    bool isDone() const { return !m_ticker.isFetchingRevenue(); }
    /// The figure's text once it is done.
    QString text() const { return m_ticker.revenueLabel(); }

private:
    void applySettings(const AnswerCase &played);

    CaseWorld m_world;
    RevenueServices m_services;
    TickerViewModel m_ticker;
};

} // namespace glimmet
