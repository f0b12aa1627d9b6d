#include "platform/desktop/DesktopLookWatch.h"

#include "platform/bus/BusCalls.h"

#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QProcess>

namespace glimmet {
namespace {

const QString portalService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

/// Read answers a variant in a variant.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

bool hasGnomeSettings()
{
    const QByteArray desktop = qgetenv("XDG_CURRENT_DESKTOP").toLower();
    return desktop.contains("gnome") || desktop.contains("unity") || desktop.contains("budgie");
}

ColorScheme schemeOfPalette()
{
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness()
        ? ColorScheme::Dark
        : ColorScheme::Light;
}

} // namespace

DesktopLookWatch::DesktopLookWatch(QObject *parent)
    : QObject(parent)
{
    qGuiApp->installEventFilter(this);
}

DesktopLookWatch::~DesktopLookWatch() = default;

DesktopLook DesktopLookWatch::look() const
{
    return desktopLook(m_settings, schemeOfPalette());
}

void DesktopLookWatch::follow(const QDBusConnection &bus)
{
    // The whole message: a slot with a QDBusVariant connects only where that type was used before (Qt 6.4).
    listen(bus, { portalPath, settingsInterface, QStringLiteral("SettingChanged") }, this,
        SLOT(handlePortalSetting(QDBusMessage)));
    const QString anyPath;
    // The settings daemon tells of each change of GNOME's settings; which one it was is not worth telling
    // apart.
    listen(bus, { anyPath, QStringLiteral("ca.desrt.dconf.Writer"), QStringLiteral("Notify") }, this,
        SLOT(readDesktopSettings()));
    for (const DesktopSetting &setting : lookSettings())
        readPortal(bus, setting);
}

void DesktopLookWatch::readPortal(const QDBusConnection &bus, const DesktopSetting &setting)
{
    QDBusMessage read =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    read << setting.group << setting.key;
    callLater(bus, read, this, [this, setting](const QDBusPendingReply<QDBusVariant> &reply) {
        DesktopSettings settings = m_settings;
        if (!reply.isError())
            settings.insert(setting, unwrapped(reply.value().variant()));
        // A portal may lack some of the settings; the one that every portal has says whether there is one.
        if (setting == lookSettings().constFirst())
            m_hasPortal = !reply.isError();
        setSettings(settings);
        if (setting == lookSettings().constLast())
            readDesktopSettings();
    });
}

void DesktopLookWatch::handlePortalSetting(const QDBusMessage &change)
{
    const QVariantList arguments = change.arguments();
    const DesktopSetting setting{ arguments.value(0).toString(), arguments.value(1).toString() };
    if (!lookSettings().contains(setting))
        return;
    m_hasPortal = true;
    DesktopSettings settings = m_settings;
    settings.insert(setting, unwrapped(arguments.value(2)));
    setSettings(settings);
}

void DesktopLookWatch::readDesktopSettings()
{
    if (m_hasPortal || !hasGnomeSettings())
        return;
    // A change during a reading may come too late for it.
    m_isReadingStale = m_reader != nullptr;
    if (m_isReadingStale)
        return;
    m_listing.clear();
    readSchemas(schemasOfGnome());
}

void DesktopLookWatch::readSchemas(const QStringList &schemas)
{
    m_reader = std::make_unique<QProcess>();
    connect(m_reader.get(), &QProcess::finished, this, [this, rest = schemas.mid(1)] {
        m_listing += m_reader->readAllStandardOutput();
        m_reader.release()->deleteLater();
        if (rest.isEmpty())
            finishReading();
        else
            readSchemas(rest);
    });
    connect(m_reader.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            m_reader.release()->deleteLater();
    });
    m_reader->start(
        QStringLiteral("gsettings"), { QStringLiteral("list-recursively"), schemas.constFirst() });
}

void DesktopLookWatch::finishReading()
{
    if (!m_hasPortal)
        setSettings(settingsOfGnome(m_listing));
    if (m_isReadingStale)
        readDesktopSettings();
}

void DesktopLookWatch::setSettings(const DesktopSettings &settings)
{
    const DesktopLook before = look();
    m_settings = settings;
    if (look() != before)
        emit changed();
}

bool DesktopLookWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange
        && !preferredScheme(m_settings))
        emit changed();
    return QObject::eventFilter(watched, event);
}

} // namespace glimmet
