#include "ui/sheets/CredentialText.h"

namespace glimmet {

void CredentialText::setTicker(TickerViewModel *ticker)
{
    if (m_ticker == ticker)
        return;
    if (m_ticker)
        m_ticker->disconnect(this);
    m_ticker = ticker;
    const auto follow = [this](KeychainKey changed) {
        if (changed == m_key)
            emit textChanged();
    };
    if (m_ticker)
        connect(m_ticker, &TickerViewModel::credentialChanged, this, follow);
    emit tickerChanged();
    emit textChanged();
}

void CredentialText::setKey(int key)
{
    if (key == this->key())
        return;
    m_key = static_cast<KeychainKey>(key);
    emit keyChanged();
    emit textChanged();
}

QString CredentialText::text() const
{
    return m_ticker ? m_ticker->credential(m_key) : QString();
}

void CredentialText::setText(const QString &text)
{
    if (m_ticker)
        m_ticker->setCredential(m_key, text);
}

} // namespace glimmet
