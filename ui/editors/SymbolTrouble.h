#pragma once

#include "core/TickerViewModel.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// Why one symbol gives no price, in words; it follows the ticker.
class SymbolTrouble : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker WRITE setTicker NOTIFY tickerChanged REQUIRED)
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY symbolChanged REQUIRED)
    /// Empty where it gives one, and until there was none twice.
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    using QObject::QObject;

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);
    QString symbol() const { return m_symbol; }
    void setSymbol(const QString &symbol);
    QString text() const { return m_text; }

signals:
    void tickerChanged();
    void symbolChanged();
    void textChanged();

private:
    void follow();

    QPointer<TickerViewModel> m_ticker;
    QString m_symbol;
    QString m_text;
};

} // namespace glimmet
