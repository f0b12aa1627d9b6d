#pragma once

#include "platform/Instant.h"
#include "prices/CryptoPrice.h"
#include "revenue/RevenueChoices.h"
#include "tests/support/HttpsServer.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace glimmet {

/// One answer of the service.
struct CasePage {
    ServerAnswer answer;
    bool isRefused = false; ///< the server has stopped listening when the request for it is sent
};

/// A request that must be sent.
struct CaseRequest {
    QByteArray method;
    QString path; ///< percent-decoded
    QList<std::pair<QString, QString>> query; ///< percent-decoded, in order
    HttpHeaders headers; ///< these at least
};

/// A figure and the text that must come of it.
struct CaseFigure {
    RevenueMode period = RevenueMode::AllTime;
    RevenueMetric metric = RevenueMetric::Revenue;
    QString text; ///< meaningless where the case ends the process
};

/// What must come of a price case.
struct CasePrice {
    std::optional<CryptoPrice> record;
    std::optional<QString> menuBarString;
    std::optional<QByteArray> output; ///< all that standard output holds; none: not compared
};

/// Exact sums by their name.
using CaseTotals = QMap<QString, qint64>;

/// One case: what the user set, what the clock says, what the service answers, and what must come of it.
struct AnswerCase {
    QString source;
    QString name;

    QString key;
    std::optional<QString> currency; ///< as typed; none: the program's own default
    QString projectID;
    QString symbol;
    Instant now;
    QByteArray zone;

    QList<CasePage> pages;
    QMap<RevenueMode, QList<CaseRequest>> requests; ///< for a price, the same under every period

    QList<CaseFigure> figures; ///< none for a price
    CasePrice price;
    QMap<RevenueMode, CaseTotals> totals; ///< no entry: not compared
    QStringList log; ///< lines that standard output must hold
    bool isFatal = false;

    bool isPrice() const { return source == QStringLiteral("yahoo"); }
    /// The platform of a revenue case.
    RevenueProvider provider() const;
    /// The position of the first page that is refused; none where all are answered.
    std::optional<qsizetype> refusedPage() const;
    bool hasSilentPage() const;
};

/// The case in the file at `path`, or why it is none.
std::variant<AnswerCase, QString> readCase(const QString &path);

} // namespace glimmet
