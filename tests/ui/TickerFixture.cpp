#include "tests/ui/TickerFixture.h"

#include "core/PreferencesKeys.h"

namespace glimmet {

void TickerFixture::advance(int seconds)
{
    m_world.timers.advance(std::chrono::seconds(seconds));
}

QStringList TickerFixture::storedQuotes() const
{
    return m_world.preferences.stringList(PreferencesKeys::quotes).value_or(QStringList{ u"absent"_s });
}

int TickerFixture::quoteSaves() const
{
    return static_cast<int>(m_world.preferences.writes().count(QString(PreferencesKeys::quotes)));
}

int TickerFixture::revenueFetches() const
{
    return static_cast<int>(m_world.revenue.count());
}

void TickerFixture::finishFetch(const QString &text)
{
    m_world.revenue.answer(m_world.revenue.count() - 1, text);
}

int TickerFixture::priceFetches() const
{
    return static_cast<int>(m_world.prices.asked().size());
}

} // namespace glimmet
