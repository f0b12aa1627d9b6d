#pragma once

#include "core/TickerViewModel.h"
#include "ui/editors/UsersDay.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// One platform's last error and when it came, in words; it follows the ticker.
class FetchProblemText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker WRITE setTicker NOTIFY tickerChanged REQUIRED)
    /// A RevenueProvider, as a number.
    Q_PROPERTY(int provider READ provider WRITE setProvider NOTIFY providerChanged REQUIRED)
    /// Such as "⚠ the request timed out · 14:32"; empty where the platform has had no error since its last
    /// success.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    using QObject::QObject;

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);
    int provider() const { return static_cast<int>(m_provider); }
    void setProvider(int provider);
    QString text() const { return m_text; }

signals:
    void tickerChanged();
    void providerChanged();
    void textChanged();

private:
    QString wording() const;
    void follow();
    void followDay();

    QPointer<TickerViewModel> m_ticker;
    RevenueProvider m_provider{};
    UsersDay m_day; ///< of the text
    QString m_text;
};

} // namespace glimmet
