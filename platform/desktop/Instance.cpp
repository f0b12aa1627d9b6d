#include "platform/desktop/Instance.h"

#include "platform/ProgramName.h"
#include "platform/bus/SessionBus.h"

#include <QDBusMessage>

namespace glimmet {
namespace {

const QString objectPath = QStringLiteral("/me/kerno/glimmet");
const QString applicationInterface = QStringLiteral("org.freedesktop.Application");

constexpr int handOverPatience = 5000; // ms

} // namespace

Instance::Instance(SessionBus &bus, QObject *parent)
    : QDBusVirtualObject(parent)
    , m_bus(bus)
{
    connect(&m_bus, &SessionBus::connected, this, &Instance::claimName);
    if (m_bus.isConnected())
        claimName();
}

Instance::Launch Instance::handOver()
{
    if (m_bus.owns(programName) || !m_bus.isConnected())
        return Launch::First;
    QDBusMessage activate = QDBusMessage::createMethodCall(
        programName, objectPath, applicationInterface, QStringLiteral("Activate"));
    activate << QVariantMap();
    const QDBusMessage reply = m_bus.connection().call(activate, QDBus::Block, handOverPatience);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return Launch::HandedOver;
    if (!m_bus.ownerOf(programName).isEmpty())
        return Launch::Refused;
    // The other one has ended in the meantime, as it does where it starts again.
    m_bus.claim(programName);
    return Launch::First;
}

void Instance::claimName()
{
    QDBusConnection connection = m_bus.connection();
    connection.registerVirtualObject(objectPath, this);
    m_bus.claim(programName);
}

QString Instance::introspect(const QString &) const
{
    return QStringLiteral(R"xml(  <interface name="org.freedesktop.Application">
    <method name="Activate"><arg type="a{sv}" direction="in"/></method>
  </interface>
)xml");
}

bool Instance::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.interface() != applicationInterface || message.member() != u"Activate")
        return false;
    connection.send(message.createReply());
    emit launchedAgain();
    return true;
}

} // namespace glimmet
