#pragma once

#include "ui/editors/PriceLabels.h"
#include "ui/editors/TickerFollower.h"

#include <optional>

namespace glimmet {

/// The symbol that the prices stand at and what is known of its price; it follows the ticker.
class ShownPrice : public glimmet::TickerFollower { // Whole, as it is registered under that name.
    Q_OBJECT
    QML_ELEMENT
    /// Seconds that a symbol stays.
    Q_PROPERTY(int interval READ interval NOTIFY intervalChanged)
    /// The symbol's place in the list; -1 where none is on show.
    Q_PROPERTY(int index READ index NOTIFY changed)
    Q_PROPERTY(bool hasSymbol READ hasSymbol NOTIFY changed)
    /// Whether its price has points to draw.
    Q_PROPERTY(bool hasChart READ hasChart NOTIFY changed)
    /// The price's texts and points; empty while it is not known.
    Q_PROPERTY(QString shortName READ shortName NOTIFY changed)
    Q_PROPERTY(QString menuBarString READ menuBarString NOTIFY changed)
    Q_PROPERTY(QList<double> history READ history NOTIFY changed)
    /// When that price came, such as "as of 14:32".
    Q_PROPERTY(QString arrival READ arrival NOTIFY changed)
    /// Why the symbol gives no price; empty where it gives one, and until there was none twice.
    Q_PROPERTY(QString trouble READ trouble NOTIFY changed)

public:
    explicit ShownPrice(QObject *parent = nullptr);

    /// `index`; -1 where the list has no entry there.
    static int indexOnShow(const QStringList &symbols, qint64 index);

    int interval() const;
    int index() const { return m_index; }
    bool hasSymbol() const { return m_index >= 0; }
    bool hasChart() const { return m_price && !m_price->history.isEmpty(); }
    QString shortName() const { return m_price ? m_price->shortName() : QString(); }
    QString menuBarString() const { return m_price ? m_price->menuBarString() : QString(); }
    QList<double> history() const { return m_price ? m_price->history : QList<double>(); }
    QString arrival() const { return m_arrival; }
    QString trouble() const { return PriceLabels::trouble(m_status.trouble()); }

signals:
    void intervalChanged();
    void changed();

protected:
    void watch(TickerViewModel &ticker) override;
    void follow() override;

private:
    QString arrivalOf(const PriceStatus &status) const;

    int m_index = -1;
    std::optional<CryptoPrice> m_price;
    PriceStatus m_status;
    QString m_arrival;
};

} // namespace glimmet
