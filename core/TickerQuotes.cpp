#include "core/DefaultQuotes.h"
#include "core/PreferencesKeys.h"
#include "core/TickerViewModel.h"
#include "platform/CheckedInteger.h"
#include "platform/PreferencesStore.h"
#include "platform/Text.h"

/// The quotes of the TickerViewModel and their rotation.
namespace glimmet {

QStringList TickerViewModel::activeQuotes() const
{
    return m_customQuotes.isEmpty() ? defaultQuotes() : m_customQuotes;
}

QString TickerViewModel::quoteDisplay() const
{
    const QStringList quotes = activeQuotes();
    if (quotes.isEmpty())
        return QStringLiteral("no quotes");
    return quotes.at(wrapped(m_currentQuoteIndex, quotes.size()));
}

void TickerViewModel::handleQuoteRotation()
{
    if (m_mode != TickerMode::Quote)
        return;
    m_quoteRotateCount = checkedSum(m_quoteRotateCount, 1);
    if (m_quoteRotateCount < m_quoteRotateInterval)
        return;
    m_quoteRotateCount = 0;
    const qsizetype count = activeQuotes().size();
    if (count < 2)
        return;
    m_currentQuoteIndex = wrapped(checkedSum(m_currentQuoteIndex, 1), count);
}

void TickerViewModel::setCustomQuotes(const QStringList &quotes)
{
    publish(m_customQuotes, quotes, &TickerViewModel::customQuotesChanged);
    saveQuotes();
}

void TickerViewModel::setQuoteRotateInterval(qint64 seconds)
{
    publish(m_quoteRotateInterval, seconds, &TickerViewModel::quoteRotateIntervalChanged);
}

void TickerViewModel::addQuote(const QString &text)
{
    const QString quote = trimmedBlanks(text);
    if (quote.isEmpty() || m_customQuotes.contains(quote))
        return;
    setCustomQuotes(m_customQuotes + QStringList{ quote });
}

void TickerViewModel::removeQuote(const QString &text)
{
    QStringList remaining = m_customQuotes;
    remaining.removeAll(text);
    setCustomQuotes(remaining);
}

void TickerViewModel::resetQuotes()
{
    setCustomQuotes({});
}

void TickerViewModel::loadQuotes()
{
    if (const auto stored = m_world.preferences.stringList(PreferencesKeys::quotes))
        setCustomQuotes(*stored);
}

void TickerViewModel::saveQuotes()
{
    m_world.preferences.setStringList(PreferencesKeys::quotes, m_customQuotes);
}

} // namespace glimmet
