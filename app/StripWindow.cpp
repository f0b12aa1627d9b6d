#include "app/StripWindow.h"

#include "app/Screens.h"
#include "platform/desktop/FrameStack.h"
#include "platform/desktop/WindowPixels.h"
#include "platform/desktop/X11.h"

#include <QGuiApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include <utility>

namespace glimmet {

class StripWindow::Window final : public QRasterWindow {
public:
    explicit Window(StripWindow &strip)
        : m_strip(strip)
    {
        setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint);
        setTitle(QStringLiteral("glimmet strip"));
    }

    const StripText &text() const { return m_text; }
    void setText(const QString &text) { m_text = StripText(text); }
    void setColors(const BarColors &colors) { m_colors = colors; }

    void refresh()
    {
        const QImage wanted = picture();
        if (!isExposed() || wanted.size() != m_seen.size() || !putChanges(wanted))
            update();
    }

protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::PlatformSurface)
            m_pixels.reset();
        return QRasterWindow::event(event);
    }
    void paintEvent(QPaintEvent *) override
    {
        m_seen = picture();
        QPainter(this).drawImage(QPoint(), m_seen);
    }
    void mousePressEvent(QMouseEvent *event) override { m_strip.handlePress(event->button(), along(event)); }
    void mouseMoveEvent(QMouseEvent *event) override { m_strip.handleMove(along(event)); }
    void mouseReleaseEvent(QMouseEvent *event) override
    {
        if (m_strip.m_press.end(event->button()))
            emit m_strip.clicked();
    }

private:
    static int along(const QMouseEvent *event) { return event->globalPosition().toPoint().x(); }

    QImage picture() const { return m_text.picture(size(), devicePixelRatio(), m_colors); }

    bool putChanges(const QImage &wanted)
    {
        const QRect part = changedPart(m_seen, wanted);
        if (part.isEmpty())
            return true;
        if (!m_pixels)
            m_pixels = std::make_unique<WindowPixels>(*this);
        if (!m_pixels->put(wanted.copy(part), part.topLeft()))
            return false;
        m_seen = wanted;
        return true;
    }

    StripWindow &m_strip;
    StripText m_text;
    BarColors m_colors;
    QImage m_seen;
    std::unique_ptr<WindowPixels> m_pixels;
};

StripWindow::StripWindow(Timers &timers, int inset)
    : m_window(std::make_unique<Window>(*this))
    , m_inset(inset)
{
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &StripWindow::place);
    place();
    X11::makeTopBar(*m_window);
    if (!X11::isI3())
        return;
    m_stack = std::make_unique<FrameStack>(static_cast<quint32>(m_window->winId()), timers);
    connect(m_stack.get(), &FrameStack::barsChanged, this, &StripWindow::fit);
    fit();
}

StripWindow::~StripWindow() = default;

void StripWindow::setText(const QString &text)
{
    if (text == m_window->text().text())
        return;
    m_window->setText(text);
    fit();
    m_window->show();
    m_window->refresh();
}

void StripWindow::setColors(const BarColors &colors)
{
    m_window->setColors(colors);
    m_window->refresh();
}

std::optional<QPoint> StripWindow::anchor() const
{
    const QPoint place(m_geometry.center().x(), m_geometry.bottom() + 1);
    return spaceOf(*m_window->screen()).toNative(QRect(place, QSize())).topLeft();
}

void StripWindow::place()
{
    for (const QMetaObject::Connection &connection : std::exchange(m_screenConnections, {}))
        disconnect(connection);
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    for (const auto change : { &QScreen::geometryChanged, &QScreen::availableGeometryChanged })
        m_screenConnections.append(connect(screen, change, this, &StripWindow::fit));
    fit();
    m_window->create();
}

void StripWindow::fit()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    if (m_stack)
        m_stack->setScreen(spaceOf(*screen).nativeGeometry());
    const QRect free = space(*screen).available;
    const QSize size = m_window->text().size(m_geometry.width(), free.width());
    const int inset = stripInset(free.width(), size.width(), m_inset);
    const QRect geometry(free.topLeft() + QPoint(free.width() - size.width() - inset, 0), size);
    if (geometry == m_geometry)
        return;
    m_geometry = geometry;
    m_window->setGeometry(geometry);
}

ScreenSpace StripWindow::space(const QScreen &screen) const
{
    return withoutBars(spaceOf(screen), m_stack ? m_stack->bars() : QList<QRect>());
}

int StripWindow::insetOf(int wanted) const
{
    return stripInset(space(*m_window->screen()).available.width(), m_geometry.width(), wanted);
}

void StripWindow::handlePress(unsigned button, int position)
{
    m_press.begin(button, position, insetOf(m_inset));
}

void StripWindow::handleMove(int position)
{
    const std::optional<int> inset = m_press.moveTo(position);
    if (!inset)
        return;
    m_inset = insetOf(*inset);
    fit();
    emit dragged(m_inset);
}

} // namespace glimmet
