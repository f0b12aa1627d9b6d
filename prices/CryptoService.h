#pragma once

#include "prices/PriceSource.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QObject>

namespace glimmet {

class DiagnosticLog;
class HttpClient;

/// Fetches the current price of a symbol, of a crypto-currency or a stock, from a chart endpoint. Keeps
/// nothing: when to ask and where to keep the answers is the caller's business. Main thread.
class CryptoService final : public QObject, public PriceSource {
    Q_OBJECT

public:
    /// The service that the program asks, without a path.
    static constexpr char yahooFinance[] = "https://query1.finance.yahoo.com";

    /// `http` and `log` outlive the service; `endpoint` is an https origin.
    CryptoService(HttpClient &http, DiagnosticLog &log, QByteArray endpoint, QObject *parent = nullptr);

    /// Asks for the price once. One good answer is one line in the log; a failure leaves no trace.
    void fetchPrice(const QString &symbol, Completion completion) override;

private:
    HttpClient &m_http;
    DiagnosticLog &m_log;
    QByteArray m_endpoint;
};

} // namespace glimmet
