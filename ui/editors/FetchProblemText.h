#pragma once

#include "ui/editors/TickerFollower.h"

namespace glimmet {

/// One platform's last error and when it came, in words; it follows the ticker.
class FetchProblemText : public glimmet::TickerFollower { // Whole, as it is registered under that name.
    Q_OBJECT
    QML_ELEMENT
    /// A RevenueProvider, as a number.
    Q_PROPERTY(int provider READ provider WRITE setProvider NOTIFY providerChanged REQUIRED)
    /// Such as "⚠ the request timed out · 14:32"; empty where the platform has had no error since its last
    /// success.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    using TickerFollower::TickerFollower;

    int provider() const { return static_cast<int>(m_provider); }
    void setProvider(int provider);
    QString text() const { return m_text; }

signals:
    void providerChanged();
    void textChanged();

protected:
    void watch(TickerViewModel &ticker) override;
    void follow() override;

private:
    QString wording() const;

    RevenueProvider m_provider{};
    QString m_text;
};

} // namespace glimmet
