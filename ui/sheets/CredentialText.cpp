#include "ui/sheets/CredentialText.h"

#include "ui/sheets/CredentialLabels.h"

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
    const auto followStatus = [this](KeychainKey changed) {
        if (changed == m_key)
            emit statusChanged();
    };
    if (m_ticker) {
        connect(m_ticker, &TickerViewModel::credentialChanged, this, follow);
        connect(m_ticker, &TickerViewModel::credentialChanged, this, followStatus);
        connect(m_ticker, &TickerViewModel::credentialStatusChanged, this, followStatus);
    }
    emit tickerChanged();
    emit textChanged();
    emit statusChanged();
}

void CredentialText::setKey(int key)
{
    if (key == this->key())
        return;
    m_key = static_cast<KeychainKey>(key);
    emit keyChanged();
    emit textChanged();
    emit statusChanged();
}

QString CredentialText::text() const
{
    return m_ticker ? m_ticker->credential(m_key) : QString();
}

KeyStatus CredentialText::status() const
{
    return m_ticker ? m_ticker->credentialStatus(m_key) : KeyStatus();
}

QString CredentialText::trouble() const
{
    return CredentialLabels::trouble(status(), text().isEmpty());
}

QString CredentialText::remedy() const
{
    return CredentialLabels::remedy(status());
}

void CredentialText::setText(const QString &text)
{
    if (m_ticker)
        m_ticker->setCredential(m_key, text);
}

} // namespace glimmet
