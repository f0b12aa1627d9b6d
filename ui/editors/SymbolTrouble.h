#pragma once

#include "ui/editors/TickerFollower.h"

namespace glimmet {

/// Why one symbol gives no price, in words; it follows the ticker.
class SymbolTrouble : public glimmet::TickerFollower { // Whole, as it is registered under that name.
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY symbolChanged REQUIRED)
    /// Empty where it gives one, and until there was none twice.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    using TickerFollower::TickerFollower;

    QString symbol() const { return m_symbol; }
    void setSymbol(const QString &symbol);
    QString text() const { return m_text; }

signals:
    void symbolChanged();
    void textChanged();

protected:
    void watch(TickerViewModel &ticker) override;
    void follow() override;

private:
    QString m_symbol;
    QString m_text;
};

} // namespace glimmet
