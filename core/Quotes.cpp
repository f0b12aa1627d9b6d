#include "core/Quotes.h"

#include "core/DefaultQuotes.h"
#include "core/PreferencesKeys.h"
#include "platform/PreferencesStore.h"
#include "platform/Publish.h"
#include "platform/Text.h"

#include <algorithm>

namespace glimmet {

Quotes::Quotes(PreferencesStore &preferences, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
{
}

void Quotes::load()
{
    if (const auto stored = m_preferences.stringList(PreferencesKeys::quotes))
        setCustom(*stored);
}

void Quotes::setCustom(const QStringList &quotes)
{
    publish(*this, m_custom, quotes, &Quotes::customChanged);
    m_preferences.setStringList(PreferencesKeys::quotes, m_custom);
}

QStringList Quotes::active() const
{
    return m_custom.isEmpty() ? defaultQuotes() : m_custom;
}

void Quotes::setRotateInterval(qint64 seconds)
{
    publish(*this, m_rotateInterval, seconds, &Quotes::rotateIntervalChanged);
}

QString Quotes::quoteIn(const QString &text)
{
    return trimmedBlanks(text);
}

void Quotes::add(const QString &text)
{
    const QString quote = quoteIn(text);
    if (quote.isEmpty() || m_custom.contains(quote))
        return;
    setCustom(m_custom + QStringList{ quote });
}

void Quotes::replace(const QString &text, const QString &replacement)
{
    const QString quote = quoteIn(replacement);
    if (quote.isEmpty() || m_custom.contains(quote) || !m_custom.contains(text))
        return;
    QStringList quotes = m_custom;
    std::replace(quotes.begin(), quotes.end(), text, quote);
    setCustom(quotes);
}

void Quotes::remove(const QString &text)
{
    QStringList remaining = m_custom;
    remaining.removeAll(text);
    setCustom(remaining);
}

void Quotes::reset()
{
    setCustom({});
}

void Quotes::tick()
{
    if (m_rotation.tick(m_rotateInterval))
        m_rotation.setIndex(m_rotation.next(active().size()));
}

QString Quotes::display() const
{
    const QStringList quotes = active();
    if (quotes.isEmpty())
        return QStringLiteral("no quotes");
    return quotes.at(m_rotation.among(quotes.size()));
}

} // namespace glimmet
