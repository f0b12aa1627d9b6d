#include "platform/desktop/PortalLoginItem.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/SessionBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QFile>
#include <QVariantMap>

#include <utility>

namespace glimmet {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString noBus = QStringLiteral("there is no session bus");

QString newToken()
{
    static int count = 0;
    return QStringLiteral("glimmet%1").arg(++count);
}

/// Where the portal makes the request of a token, so that its answer cannot come before it is listened for.
QString requestPath(const QDBusConnection &bus, const QString &token)
{
    const QString sender = bus.baseService().mid(1).replace(u'.', u'_');
    return path + QStringLiteral("/request/") + sender + u'/' + token;
}

BusSignal responseTo(const QString &request)
{
    return { request, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response") };
}

} // namespace

PortalLoginItem::PortalLoginItem(const SessionBus &bus, QStringList command, QObject *parent)
    : QObject(parent)
    , m_sessionBus(bus)
    , m_command(std::move(command))
{
    connect(&bus, &SessionBus::lost, this, [this] { finish(noBus); });
}

bool PortalLoginItem::isNeeded(const QString &program)
{
    // What a snap starts outside of itself inherits the variable: a terminal's programs, for one.
    const QString snap = qEnvironmentVariable("SNAP");
    const bool isInSnap = !snap.isEmpty() && program.startsWith(snap + u'/');
    return isInSnap || QFile::exists(QStringLiteral("/.flatpak-info"));
}

void PortalLoginItem::registerItem(const Completion &completion)
{
    ask(true, completion);
}

void PortalLoginItem::unregisterItem(const Completion &completion)
{
    ask(false, completion);
}

void PortalLoginItem::ask(bool autostart, const Completion &completion)
{
    finish(QStringLiteral("asked anew"));
    m_bus = m_sessionBus.connection();
    // Qt answers no call of a connection that was closed.
    if (!m_bus.isConnected())
        return completion(noBus);
    const QString token = newToken();
    m_wantsAutostart = autostart;
    m_completion = completion;
    m_request = requestPath(m_bus, token);
    listen(m_bus, responseTo(m_request), this, SLOT(handleResponse(QDBusMessage)));
    QDBusMessage call = QDBusMessage::createMethodCall(service, path,
        QStringLiteral("org.freedesktop.portal.Background"), QStringLiteral("RequestBackground"));
    call << QString()
         << QVariantMap{ { QStringLiteral("handle_token"), token },
                { QStringLiteral("autostart"), autostart }, { QStringLiteral("commandline"), m_command },
                { QStringLiteral("dbus-activatable"), false } };
    callLater(m_bus, call, this, [this, asked = m_request](const QDBusPendingCall &answer) {
        if (answer.isError() && asked == m_request)
            finish(answer.error().message());
    });
}

void PortalLoginItem::handleResponse(const QDBusMessage &response)
{
    if (response.path() != m_request)
        return;
    const QVariantList arguments = response.arguments();
    const auto results = qdbus_cast<QVariantMap>(arguments.value(1));
    const bool isGranted = arguments.value(0).toUInt() == 0
        && results.value(QStringLiteral("autostart")).toBool() == m_wantsAutostart;
    if (!isGranted)
        return finish(QStringLiteral("the desktop did not agree"));
    m_status = m_wantsAutostart ? LoginItemStatus::Enabled : LoginItemStatus::NotRegistered;
    finish(std::nullopt);
}

void PortalLoginItem::finish(const std::optional<QString> &failure)
{
    if (!m_request.isEmpty())
        stopListening(m_bus, responseTo(m_request), this, SLOT(handleResponse(QDBusMessage)));
    m_request.clear();
    if (const Completion completion = std::exchange(m_completion, nullptr))
        completion(failure);
}

} // namespace glimmet
