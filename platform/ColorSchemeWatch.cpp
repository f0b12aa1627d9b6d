#include "platform/ColorSchemeWatch.h"

#include <QDBusPendingCallWatcher>
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
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");

/// The portal's numbers: 1 prefers dark, 2 prefers light, 0 has no preference. Read answers a variant in a
/// variant.
std::optional<ColorScheme> schemeOf(const QVariant &value)
{
    QVariant inner = value;
    while (inner.canConvert<QDBusVariant>())
        inner = inner.value<QDBusVariant>().variant();
    switch (inner.toUInt()) {
    case 1:
        return ColorScheme::Dark;
    case 2:
        return ColorScheme::Light;
    default:
        return std::nullopt;
    }
}

/// GNOME's words for the same.
std::optional<ColorScheme> schemeNamed(const QByteArray &name)
{
    if (name.contains("prefer-dark"))
        return ColorScheme::Dark;
    if (name.contains("prefer-light"))
        return ColorScheme::Light;
    return std::nullopt;
}

bool hasGnomeSettings()
{
    const QByteArray desktop = qgetenv("XDG_CURRENT_DESKTOP").toLower();
    return desktop.contains("gnome") || desktop.contains("unity") || desktop.contains("budgie");
}

} // namespace

ColorSchemeWatch::ColorSchemeWatch(QObject *parent)
    : QObject(parent)
{
    qGuiApp->installEventFilter(this);
}

ColorSchemeWatch::~ColorSchemeWatch() = default;

ColorScheme ColorSchemeWatch::scheme() const
{
    if (m_preference)
        return *m_preference;
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness()
        ? ColorScheme::Dark
        : ColorScheme::Light;
}

void ColorSchemeWatch::follow(QDBusConnection bus)
{
    // The whole message: a slot with a QDBusVariant connects only where that type was used before (Qt 6.4).
    // From anybody: to follow one well-known name, Qt asks for its owner and aborts if the bus is lost
    // meanwhile.
    bus.connect(QString(), portalPath, settingsInterface, QStringLiteral("SettingChanged"), this,
        SLOT(handlePortalSetting(QDBusMessage)));
    // The settings daemon tells of each change of GNOME's settings; which one it was is not worth telling
    // apart.
    bus.connect(QString(), QString(), QStringLiteral("ca.desrt.dconf.Writer"), QStringLiteral("Notify"), this,
        SLOT(readDesktopSetting()));
    readPortal(bus);
}

void ColorSchemeWatch::readPortal(const QDBusConnection &bus)
{
    QDBusMessage read =
        QDBusMessage::createMethodCall(portalService, portalPath, settingsInterface, QStringLiteral("Read"));
    read << appearance << colorSchemeKey;
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(read), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher *finished) {
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        finished->deleteLater();
        m_hasPortal = !reply.isError();
        if (m_hasPortal)
            setPreference(schemeOf(reply.value().variant()));
        else
            readDesktopSetting();
    });
}

void ColorSchemeWatch::handlePortalSetting(const QDBusMessage &change)
{
    const QVariantList arguments = change.arguments();
    if (arguments.value(0) != appearance || arguments.value(1) != colorSchemeKey)
        return;
    m_hasPortal = true;
    setPreference(schemeOf(arguments.value(2)));
}

void ColorSchemeWatch::readDesktopSetting()
{
    if (m_hasPortal || !hasGnomeSettings())
        return;
    // A change during a reading may come too late for it.
    m_isReadingStale = m_reader != nullptr;
    if (m_isReadingStale)
        return;
    m_reader = std::make_unique<QProcess>();
    connect(m_reader.get(), &QProcess::finished, this, &ColorSchemeWatch::finishReading);
    connect(m_reader.get(), &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            m_reader.release()->deleteLater();
    });
    m_reader->start(QStringLiteral("gsettings"),
        { QStringLiteral("get"), QStringLiteral("org.gnome.desktop.interface"), colorSchemeKey });
}

void ColorSchemeWatch::finishReading()
{
    const QByteArray answer = m_reader->readAllStandardOutput();
    m_reader.release()->deleteLater();
    setPreference(schemeNamed(answer));
    if (m_isReadingStale)
        readDesktopSetting();
}

void ColorSchemeWatch::setPreference(std::optional<ColorScheme> preference)
{
    const ColorScheme before = scheme();
    m_preference = preference;
    if (scheme() != before)
        emit changed();
}

bool ColorSchemeWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange && !m_preference)
        emit changed();
    return QObject::eventFilter(watched, event);
}

} // namespace glimmet
