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
    /// Why the key store does not hold exactly that text, in words; empty where it does.
    Q_PROPERTY(QString trouble READ trouble NOTIFY statusChanged)
    /// What the user may do about it, in a word; empty where that is nothing.
    Q_PROPERTY(QString remedy READ remedy NOTIFY statusChanged)

public:
    using QObject::QObject;

    TickerViewModel *ticker() const { return m_ticker; }
    void setTicker(TickerViewModel *ticker);
    int key() const { return static_cast<int>(m_key); }
    void setKey(int key);
    QString text() const;
    void setText(const QString &text);
    QString trouble() const;
    QString remedy() const;

signals:
    void tickerChanged();
    void keyChanged();
    void textChanged();
    void statusChanged();

private:
    KeyStatus status() const;

    QPointer<TickerViewModel> m_ticker;
    KeychainKey m_key{};
};

} // namespace glimmet
