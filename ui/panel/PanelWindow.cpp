#include "ui/panel/PanelWindow.h"

#include "core/TickerViewModel.h"
#include "platform/desktop/X11.h"
#include "ui/controls/Geometry.h"
#include "ui/controls/WholeFrames.h"
#include "ui/panel/Appearance.h"
#include "ui/panel/IdleWatch.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QScreen>

namespace glimmet {

namespace {

constexpr QSize panelSize(340, 540);
constexpr int cornerRadius = 14;
/// A software-rendered desktop draws its whole screen for each step of what moves in the panel.
constexpr std::chrono::minutes idlePatience{ 1 };

} // namespace

PanelWindow::PanelWindow(
    TickerViewModel &ticker, const PanelServices &services, const PanelModule::Options &options)
    : m_isTranslucent(options.isTranslucent)
    , m_host(QCoreApplication::applicationVersion(), services)
    , m_appearance(*new Appearance(m_view.engine()))
{
    dress();
    connectHost(services);
    setLook(options.look);
    m_view.setInitialProperties({
        { QStringLiteral("ticker"), QVariant::fromValue(&ticker) },
        { QStringLiteral("host"), QVariant::fromValue(&m_host) },
    });
    m_view.setSource(QUrl(QStringLiteral("qrc:/qt-project.org/imports/Glimmet/SettingsPanel.qml")));
    m_view.resize(panelSize);
    new WholeFrames(m_view);
    auto *idle = new IdleWatch(m_view, idlePatience);
    QObject::connect(idle, &IdleWatch::changed, &m_appearance,
        [this, idle] { m_appearance.setAttended(!idle->isIdle()); });
}

PanelWindow::~PanelWindow()
{
    // What is being composed would be gone where the keyboard leaves its field.
    QFocusEvent leaving(QEvent::FocusAboutToChange);
    QCoreApplication::sendEvent(&m_view, &leaving);
    if (QQuickItem *page = m_view.rootObject())
        page->forceActiveFocus();
}

void PanelWindow::dress()
{
    m_view.setTitle(QStringLiteral("glimmet"));
    m_view.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    m_view.setResizeMode(QQuickView::SizeRootObjectToView);
    if (m_isTranslucent)
        return;
    QObject::connect(&m_view, &QWindow::widthChanged, &m_view, [this] { maskCorners(); });
    QObject::connect(&m_view, &QWindow::heightChanged, &m_view, [this] { maskCorners(); });
    QObject::connect(&m_view, &QWindow::screenChanged, &m_view, [this] { followScale(); });
    followScale();
}

void PanelWindow::followScale()
{
    if (m_view.screen() == nullptr)
        return;
    // A mask is made of the screen's pixels. Queued, since they are known anew only after all have been told.
    // With another scale Qt tells of other dots an inch (6.4) or of a screen of another size in its own units
    // (6.8).
    const auto mask = [this] { maskCorners(); };
    QObject::connect(
        m_view.screen(), &QScreen::logicalDotsPerInchChanged, &m_view, mask, Qt::QueuedConnection);
    QObject::connect(m_view.screen(), &QScreen::geometryChanged, &m_view, mask, Qt::QueuedConnection);
    maskCorners();
}

void PanelWindow::connectHost(const PanelServices &services)
{
    // Queued, since the owner may destroy the panel as soon as its window goes, and QML is still running
    // then.
    QObject::connect(
        &m_host, &PanelHost::closeRequested, &m_view, [this] { m_view.close(); }, Qt::QueuedConnection);
    QObject::connect(
        &m_host, &PanelHost::quitRequested, &m_view, [] { QCoreApplication::quit(); }, Qt::QueuedConnection);
    QObject::connect(
        &m_host, &PanelHost::updateCheckRequested, &m_view,
        [this, check = services.checkForUpdates] {
            m_view.raise();
            m_view.requestActivate();
            check();
        },
        Qt::QueuedConnection);
}

void PanelWindow::setLook(const DesktopLook &look)
{
    m_appearance.setLook(look);
    m_view.setColor(m_isTranslucent ? QColor(Qt::transparent) : panelColors(look.scheme).background);
}

void PanelWindow::maskCorners()
{
    m_view.setMask(Geometry::roundedRegion(m_view.size(), cornerRadius));
    const qreal scale = m_view.devicePixelRatio();
    if (scale <= 1 || m_view.size().isEmpty())
        return;
    // That mask is made of logical pixels: its steps are several of the screen's, which it takes as well.
    const QSize pixels = (QSizeF(m_view.size()) * scale).toSize();
    X11::setShape(m_view, Geometry::roundedRegion(pixels, cornerRadius * scale));
}

} // namespace glimmet
