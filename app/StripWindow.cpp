#include "app/StripWindow.h"

#include "app/Screens.h"
#include "platform/desktop/FrameStack.h"
#include "platform/desktop/X11.h"

#include <QGuiApplication>
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

    QString text;
    BarColors colors;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        paintStrip(painter, size(), text, colors);
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

    StripWindow &m_strip;
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
    if (text == m_window->text)
        return;
    m_window->text = text;
    fit();
    m_window->show();
    m_window->update();
}

void StripWindow::setColors(const BarColors &colors)
{
    m_window->colors = colors;
    m_window->update();
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
    const QRect free = space(*screen).available;
    const QSize size = stripSize(m_window->text, m_geometry.width(), free.width());
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
