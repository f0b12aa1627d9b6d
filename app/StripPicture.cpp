#include "app/StripPicture.h"

#include "ui/panel/PanelColors.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

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

StripText::StripText(const QString &text)
    : m_text(text)
    , m_layout(std::make_unique<QTextLayout>(text, stripFont()))
{
    QTextOption option;
    option.setWrapMode(QTextOption::NoWrap);
    m_layout->setTextOption(option);
    // Else drawing it would lay it out anew.
    m_layout->setCacheEnabled(true);
    m_layout->beginLayout();
    const QTextLine line = m_layout->createLine();
    m_layout->endLayout();
    if (line.isValid())
        m_width = line.naturalTextWidth();
}

QSize StripText::size(int current, int most) const
{
    // Rounded down, the text would lack its last letter.
    const int ink = static_cast<int>(std::ceil(m_width)) + 1;
    const int needed = std::min(ink + 2 * margin, most);
    const bool isFit = current >= needed && current <= std::min(needed + slack, most);
    return { isFit ? current : needed, stripHeight };
}

QImage StripText::picture(QSize size, double scale, const BarColors &colors) const
{
    QImage picture(size * scale, QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(colors.background);
    QPainter painter(&picture);
    painter.setPen(colors.ink);
    paint(painter, QRectF(QPointF(), size).adjusted(margin, 0, -margin, 0));
    return picture;
}

void StripText::paint(QPainter &painter, const QRectF &area) const
{
    if (m_layout->lineCount() == 0)
        return;
    if (m_width > area.width()) {
        painter.setFont(m_layout->font());
        const QFontMetricsF metrics(m_layout->font());
        painter.drawText(area, Qt::AlignCenter | Qt::TextSingleLine,
            metrics.elidedText(m_text, Qt::ElideRight, area.width()));
        return;
    }
    const QSizeF free = area.size() - QSizeF(m_width, m_layout->lineAt(0).height());
    m_layout->draw(&painter, area.topLeft() + QPointF(free.width() / 2, free.height() / 2));
}

QRect changedPart(const QImage &before, const QImage &after)
{
    if (before.size() != after.size() || before.format() != after.format())
        return after.rect();
    QRect part;
    for (int y = 0; y < after.height(); ++y) {
        const auto *old = reinterpret_cast<const QRgb *>(before.constScanLine(y));
        const auto *now = reinterpret_cast<const QRgb *>(after.constScanLine(y));
        const auto first = std::mismatch(now, now + after.width(), old).first - now;
        if (first == after.width())
            continue;
        const auto last =
            std::mismatch(std::make_reverse_iterator(now + after.width()), std::make_reverse_iterator(now),
                std::make_reverse_iterator(old + after.width()))
                .first.base()
            - now - 1;
        part |= QRect(QPoint(int(first), y), QPoint(int(last), y));
    }
    return part;
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
