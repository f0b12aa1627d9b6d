#include "ui/controls/Announcement.h"

#include "platform/desktop/ScreenReader.h"

#include <QAccessible>

#include <algorithm>

namespace glimmet {

Announcement::Announcement(QObject *parent)
    : QObject(parent)
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &Announcement::say);
}

void Announcement::setItem(QQuickItem *item)
{
    if (m_item == item)
        return;
    m_item = item;
    emit itemChanged();
}

void Announcement::setText(const QString &text)
{
    const bool isFirst = !m_hasBegun;
    m_hasBegun = true;
    if (m_text == text)
        return;
    m_text = text;
    emit textChanged();
    if (isFirst)
        m_lastSaid = text;
    else
        m_timer.start(patience());
}

int Announcement::patience() const
{
    if (!m_sinceSaid.isValid())
        return m_rest;
    return std::max(m_rest, m_gap - static_cast<int>(std::min<qint64>(m_sinceSaid.elapsed(), m_gap)));
}

void Announcement::say()
{
    if (m_text == m_lastSaid)
        return;
    m_lastSaid = m_text;
    if (m_text.isEmpty() || !m_item)
        return;
    m_sinceSaid.start();
    emit said(m_text);
    if (!QAccessible::isActive())
        return;
    if (QAccessibleInterface *told = QAccessible::queryAccessibleInterface(m_item))
        announce(QAccessible::uniqueId(told), m_text);
}

} // namespace glimmet
