#include "app/StripHost.h"

#include "app/Screens.h"
#include "platform/desktop/X11.h"
#include "ui/panel/PanelColors.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace glimmet {
namespace {

constexpr int stripHeight = 26;
constexpr int textMargin = 14;

QFont stripFont()
{
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(13);
    return font;
}

} // namespace

StripWindow::StripWindow()
{
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint);
    setTitle(QStringLiteral("glimmet strip"));
}

void StripWindow::setText(const QString &text)
{
    if (text == m_text)
        return;
    // Only what the old or the new text covers is painted anew.
    const int before = textWidth();
    m_text = text;
    const int width = std::max(before, textWidth()) + 2 * textMargin;
    update(QRect(this->width() - width, 0, width, height()));
}

void StripWindow::setColorScheme(ColorScheme scheme)
{
    m_scheme = scheme;
    update();
}

int StripWindow::textWidth() const
{
    return std::min(QFontMetrics(stripFont()).horizontalAdvance(m_text), width() - 2 * textMargin);
}

QPoint StripWindow::anchor() const
{
    return position() + QPoint(width() - textMargin - textWidth() / 2, height());
}

void StripWindow::paintEvent(QPaintEvent *)
{
    const PanelColors colors = panelColors(m_scheme);
    QPainter painter(this);
    painter.fillRect(QRect(QPoint(), size()), colors.background);
    painter.setFont(stripFont());
    painter.setPen(colors.ink);
    const QRect area(textMargin, 0, width() - 2 * textMargin, height());
    const QString shown = painter.fontMetrics().elidedText(m_text, Qt::ElideRight, area.width());
    painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

void StripWindow::mousePressEvent(QMouseEvent *)
{
    emit clicked();
}

StripHost::~StripHost() = default;

void StripHost::setText(const QString &text)
{
    m_text = text;
    if (m_window)
        m_window->setText(text);
}

void StripHost::setColorScheme(ColorScheme scheme)
{
    m_scheme = scheme;
    if (m_window)
        m_window->setColorScheme(scheme);
}

void StripHost::setShown(bool shown)
{
    if (shown == (m_window != nullptr))
        return;
    if (shown)
        show();
    else
        m_window.reset();
}

std::optional<QPoint> StripHost::anchor() const
{
    if (!m_window)
        return std::nullopt;
    return spaceOf(*m_window->screen()).toNative(QRect(m_window->anchor(), QSize())).topLeft();
}

void StripHost::show()
{
    m_window = std::make_unique<StripWindow>();
    m_window->setText(m_text);
    m_window->setColorScheme(m_scheme);
    connect(m_window.get(), &StripWindow::clicked, this, &StripHost::clicked);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, m_window.get(), [this] { place(); });
    place();
    m_window->show();
}

void StripHost::place()
{
    disconnect(m_screenConnection);
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    m_screenConnection = connect(screen, &QScreen::geometryChanged, m_window.get(), [this] { place(); });
    const ScreenSpace space = spaceOf(*screen);
    // Under a bar that is there already; later on the available space begins below the strip itself.
    if (!m_window->isVisible())
        m_barHeight = space.available.top() - space.geometry.top();
    m_window->setGeometry(QRect(
        space.geometry.left(), space.geometry.top() + m_barHeight, space.geometry.width(), stripHeight));
    m_window->create();
    const X11::Reserve reserve =
        hasScreenAbove(space, allScreens()) ? X11::Reserve::Nothing : X11::Reserve::Space;
    X11::makeTopBar(*m_window, space.toNative(m_window->geometry()), reserve);
}

} // namespace glimmet
