#include "platform/desktop/ScreenReader.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

namespace glimmet {
namespace {

constexpr int polite = 1;

} // namespace

void announce(quint32 accessibleId, const QString &text)
{
    // Where Qt speaks to assistive programs; they take news only from the participant that they know.
    QDBusConnection bus(QStringLiteral("a11y"));
    if (!bus.isConnected())
        return;
    QDBusMessage news =
        QDBusMessage::createSignal(QStringLiteral("/org/a11y/atspi/accessible/%1").arg(accessibleId),
            QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("Announcement"));
    news << QString() << polite << 0 << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
    bus.send(news);
}

} // namespace glimmet
