#include "platform/desktop/TopBarObject.h"

#include "platform/bus/BusProperties.h"

#include <QDBusError>

#include <chrono>
#include <utility>

namespace glimmet {

using namespace std::chrono_literals;

namespace {

/// How long a call waits for a change: less than the 25 seconds after which libraries take it for lost.
constexpr std::chrono::milliseconds longestWait = 20s;

/// A rectangle and a size.
const QString placeSignature = QStringLiteral("iiiiii");

const QString placeArguments = QStringLiteral(R"xml(      <arg name="x" type="i" direction="in"/>
      <arg name="y" type="i" direction="in"/>
      <arg name="width" type="i" direction="in"/>
      <arg name="height" type="i" direction="in"/>
      <arg name="stageWidth" type="i" direction="in"/>
      <arg name="stageHeight" type="i" direction="in"/>
)xml");

struct Place {
    QRect button;
    QSize stage;
};

Place placeIn(const QVariantList &values)
{
    const auto number = [&values](int i) { return values.at(i).toInt(); };
    return { QRect(number(0), number(1), number(2), number(3)), QSize(number(4), number(5)) };
}

} // namespace

const QString TopBarObject::path = QStringLiteral("/me/kerno/glimmet/TopBar");
const QString TopBarObject::interface = QStringLiteral("me.kerno.glimmet.TopBar1");

TopBarObject::TopBarObject(Timers &timers, Permission permission, QObject *parent)
    : QDBusVirtualObject(parent)
    , m_permission(std::move(permission))
    , m_connection(QString())
    , m_patience(timers, longestWait, [this] { answerWaiting(); })
{
}

void TopBarObject::putOn(const QDBusConnection &connection)
{
    m_connection = connection;
    m_connection.registerVirtualObject(path, this);
}

void TopBarObject::takeOff()
{
    m_connection = QDBusConnection(QString());
    m_waiting.clear();
    m_patience.stop();
}

void TopBarObject::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    tell(QStringLiteral("Text"), m_text);
}

void TopBarObject::setPanelOpen(bool isOpen)
{
    if (isOpen == m_isPanelOpen)
        return;
    m_isPanelOpen = isOpen;
    tell(QStringLiteral("PanelOpen"), m_isPanelOpen);
}

QString TopBarObject::introspect(const QString &) const
{
    return QStringLiteral(R"xml(  <interface name="me.kerno.glimmet.TopBar1">
    <property name="Text" type="s" access="read"/>
    <property name="PanelOpen" type="b" access="read"/>
    <method name="Place">
%1    </method>
    <method name="Toggle">
%1    </method>
    <method name="PressElsewhere"/>
    <method name="AwaitChange">
      <arg name="knownText" type="s" direction="in"/>
      <arg name="knownPanelOpen" type="b" direction="in"/>
      <arg name="text" type="s" direction="out"/>
      <arg name="panelOpen" type="b" direction="out"/>
    </method>
  </interface>
)xml")
        .arg(placeArguments);
}

bool TopBarObject::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.interface() == propertiesInterface)
        return answerProperties(message, connection, properties());
    if (message.interface() != interface && !message.interface().isEmpty())
        return false;
    if (!m_permission(message.service()))
        return connection.send(message.createErrorReply(
            QDBusError::AccessDenied, QStringLiteral("Only the desktop's shell may say this")));
    if (message.member() == u"AwaitChange" && message.signature() == u"sb")
        return keepWaiting(message) || connection.send(stateFor(message));
    if (!handleCall(message))
        return connection.send(message.createErrorReply(
            QDBusError::UnknownMethod, message.member() + u'(' + message.signature() + u')'));
    return connection.send(message.createReply());
}

bool TopBarObject::handleCall(const QDBusMessage &message)
{
    const QString member = message.member();
    if (member == u"PressElsewhere") {
        emit pressedElsewhere();
        return true;
    }
    if ((member != u"Place" && member != u"Toggle") || message.signature() != placeSignature)
        return false;
    const Place place = placeIn(message.arguments());
    emit placed(place.button, place.stage);
    if (member == u"Toggle")
        emit toggled();
    return true;
}

QVariantMap TopBarObject::properties() const
{
    return { { QStringLiteral("Text"), m_text }, { QStringLiteral("PanelOpen"), m_isPanelOpen } };
}

bool TopBarObject::keepWaiting(const QDBusMessage &message)
{
    if (message.arguments() != QVariantList{ m_text, m_isPanelOpen })
        return false;
    m_waiting.push_back(message);
    if (!m_patience.isRunning())
        m_patience.start();
    return true;
}

void TopBarObject::answerWaiting()
{
    m_patience.stop();
    for (const QDBusMessage &message : std::exchange(m_waiting, {}))
        m_connection.send(stateFor(message));
}

QDBusMessage TopBarObject::stateFor(const QDBusMessage &message) const
{
    return message.createReply(QVariantList{ m_text, m_isPanelOpen });
}

void TopBarObject::tell(const QString &property, const QVariant &value)
{
    answerWaiting();
    if (!m_isTelling || !m_connection.isConnected())
        return;
    QDBusMessage message =
        QDBusMessage::createSignal(path, propertiesInterface, QStringLiteral("PropertiesChanged"));
    message << interface << QVariantMap{ { property, value } } << QStringList();
    m_connection.send(message);
}

} // namespace glimmet
