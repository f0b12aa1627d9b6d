#pragma once

#include "core/TickerViewModel.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace glimmet {

/// One credential of the ticker's as a property that QML can bind to, whichever it is.
class CredentialText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(glimmet::TickerViewModel *ticker READ ticker WRITE setTicker NOTIFY tickerChanged REQUIRED)
    /// A KeychainKey, as a number.
    Q_PROPERTY(int key READ key WRITE setKey NOTIFY keyChanged REQUIRED)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

public:
    using QObject::QObject;

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);
    int key() const { return static_cast<int>(m_key); }
    void setKey(int key);
    QString text() const;
    void setText(const QString &text);

signals:
    void tickerChanged();
    void keyChanged();
    void textChanged();

private:
    QPointer<TickerViewModel> m_ticker;
    KeychainKey m_key{};
};

} // namespace glimmet
