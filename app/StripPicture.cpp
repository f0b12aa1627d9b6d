#include "app/StripPicture.h"

#include "ui/panel/PanelColors.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace glimmet {
namespace {

constexpr int stripHeight = 26;
constexpr int margin = 14;
constexpr int slack = 32; // by which a strip may be too wide
constexpr int clickReach = 4; // within which a pointer that moves still clicks

QFont stripFont()
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(13);
    return font;
}

} // namespace

QSize stripSize(const QString &text, int current, int most)
{
    // Rounded down, the text would lack its last letter.
    const int ink = static_cast<int>(std::ceil(QFontMetricsF(stripFont()).horizontalAdvance(text))) + 1;
    const int needed = std::min(ink + 2 * margin, most);
    const bool isFit = current >= needed && current <= std::min(needed + slack, most);
    return { isFit ? current : needed, stripHeight };
}

void paintStrip(QPainter &painter, QSize size, const QString &text, const BarColors &colors)
{
    const QRect all(QPoint(), size);
    painter.fillRect(all, colors.background);
    painter.setFont(stripFont());
    painter.setPen(colors.ink);
    const QRect area = all.adjusted(margin, 0, -margin, 0);
    const QString shown = QFontMetricsF(stripFont()).elidedText(text, Qt::ElideRight, area.width());
    painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine, shown);
}

BarColors stripColors(ColorScheme scheme)
{
    const PanelColors colors = panelColors(scheme);
    return { colors.background, colors.ink };
}

int stripInset(int length, int width, int inset)
{
    return std::max(0, std::min(inset, length - width));
}

void StripPress::begin(unsigned button, int position, int inset)
{
    if (m_isDown)
        return;
    m_isDown = true;
    m_button = button;
    m_isDrag = false;
    m_position = position;
    m_inset = inset;
}

std::optional<int> StripPress::moveTo(int position)
{
    const int distance = position - m_position;
    m_isDrag = m_isDown && (m_isDrag || std::abs(distance) > clickReach);
    if (!m_isDrag)
        return std::nullopt;
    return m_inset - distance;
}

bool StripPress::end(unsigned button)
{
    if (!m_isDown || button != m_button)
        return false;
    m_isDown = false;
    return !m_isDrag;
}

} // namespace glimmet
