#include "app/MenuBar.h"

#include "core/HostText.h"

#include <chrono>

namespace glimmet {

using namespace std::chrono_literals;

MenuBar::MenuBar(SessionBus &bus, QObject *parent)
    : QObject(parent)
    , m_item(bus)
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(5s);
    connect(&m_patience, &QTimer::timeout, this, &MenuBar::showStrip);
    connect(&m_item, &ItemHost::availabilityChanged, this, &MenuBar::chooseHost);
    connect(&m_item, &ItemHost::clicked, this, &MenuBar::clicked);
    connect(&m_item, &ItemHost::openChosen, this, &MenuBar::openChosen);
    connect(&m_item, &ItemHost::quitChosen, this, &MenuBar::quitChosen);
    connect(&m_strip, &StripHost::clicked, this, &MenuBar::clicked);
    chooseHost();
}

void MenuBar::setText(const QString &text)
{
    if (text == m_rawText)
        return;
    m_rawText = text;
    const QString line = hostText(text);
    m_item.setText(line);
    m_strip.setText(line);
}

void MenuBar::setColorScheme(ColorScheme scheme)
{
    m_strip.setColorScheme(scheme);
}

std::optional<QPoint> MenuBar::anchor() const
{
    return m_item.isAvailable() ? m_item.anchor() : m_strip.anchor();
}

void MenuBar::chooseHost()
{
    if (!m_item.isAvailable()) {
        m_patience.start();
        return;
    }
    m_patience.stop();
    m_strip.setShown(false);
    emit moved(QStringLiteral("shown as an item"));
}

void MenuBar::showStrip()
{
    m_strip.setShown(true);
    emit moved(QStringLiteral("shown as a strip"));
}

} // namespace glimmet
