#include "platform/desktop/StatusNotifierItem.h"

#include "platform/bus/BusProperties.h"
#include "platform/desktop/NotifierMenu.h"
#include "platform/desktop/StatusNotifierTypes.h"

#include <QDBusError>
#include <QDBusMessage>

#include <chrono>
#include <utility>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

constexpr const char *itemPath = "/StatusNotifierItem";
constexpr const char *itemInterfaceName = "org.kde.StatusNotifierItem";
const QString itemInterface = QString::fromLatin1(itemInterfaceName);
constexpr const char *newLabel = "XAyatanaNewLabel";
/// Within it Qt's thread has written what it was given, and a label overtakes nothing that tells of one
/// before.
constexpr auto qtsTime = 500ms;

const QString memberXml = QStringLiteral(R"xml(  <interface name="org.kde.StatusNotifierItem">
    <property name="Category" type="s" access="read"/>
    <property name="Id" type="s" access="read"/>
    <property name="Title" type="s" access="read"/>
    <property name="Status" type="s" access="read"/>
    <property name="WindowId" type="i" access="read"/>
    <property name="IconName" type="s" access="read"/>
    <property name="IconPixmap" type="a(iiay)" access="read"/>
    <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
    <property name="ItemIsMenu" type="b" access="read"/>
    <property name="Menu" type="o" access="read"/>
    <property name="XAyatanaLabel" type="s" access="read"/>
    <property name="XAyatanaLabelGuide" type="s" access="read"/>
    <property name="XAyatanaOrderingIndex" type="u" access="read"/>
    <signal name="NewIcon"/>
    <signal name="NewToolTip"/>
    <signal name="NewStatus"><arg name="status" type="s"/></signal>
    <signal name="XAyatanaNewLabel"><arg name="label" type="s"/><arg name="guide" type="s"/></signal>
    <method name="Scroll"><arg type="i" direction="in"/><arg type="s" direction="in"/></method>
    <method name="SecondaryActivate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
)xml");

const QString clickXml = QStringLiteral(
    R"xml(    <method name="Activate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
    <method name="ContextMenu"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
)xml");

const QString endXml = QStringLiteral("  </interface>\n");

QPoint positionOf(const QDBusMessage &message)
{
    return { message.arguments().value(0).toInt(), message.arguments().value(1).toInt() };
}

} // namespace

const QString StatusNotifierItem::path = QString::fromLatin1(itemPath);

StatusNotifierItem::StatusNotifierItem(const SteadyClock &clock, QObject *parent)
    : QDBusVirtualObject(parent)
    , m_connection(QString())
    , m_labelSignal(itemPath, itemInterfaceName, newLabel)
    , m_sinceQt(clock)
{
    registerNotifierTypes();
}

bool StatusNotifierItem::putOn(const QDBusConnection &connection)
{
    m_connection = connection;
    return m_connection.registerVirtualObject(path, this);
}

void StatusNotifierItem::takeOff()
{
    m_connection = QDBusConnection(QString());
}

void StatusNotifierItem::setLabel(const QString &label)
{
    if (label == m_label)
        return;
    m_label = label;
    announceLabel();
}

void StatusNotifierItem::announceLabel()
{
    // An item that is not shown need not wake its host each second.
    if ((m_active && m_isLabelHeard) || m_followed)
        sendLabel();
}

void StatusNotifierItem::sendLabel()
{
    const QString guide;
    const bool isInOrder = m_sinceQt.hasPassed(qtsTime);
    if (!isInOrder || !m_labelSignal.send(m_connection, { m_label, guide }))
        emitChange(QString::fromLatin1(newLabel), { m_label, guide });
}

void StatusNotifierItem::setPresentation(Presentation presentation)
{
    if (presentation == m_presentation)
        return;
    m_presentation = presentation;
    emitChange(QStringLiteral("NewIcon"));
}

void StatusNotifierItem::setPictures(QList<NotifierPixmap> pictures)
{
    m_pictures = std::move(pictures);
    if (m_presentation == Presentation::Icon)
        emitChange(QStringLiteral("NewIcon"));
}

void StatusNotifierItem::announceToolTip()
{
    emitChange(QStringLiteral("NewToolTip"));
}

void StatusNotifierItem::setActive(bool active)
{
    if (active == m_active)
        return;
    m_active = active;
    emitChange(
        QStringLiteral("NewStatus"), { m_active ? QStringLiteral("Active") : QStringLiteral("Passive") });
    announceLabel();
}

QString StatusNotifierItem::introspect(const QString &) const
{
    // Without Activate a host that knows menus opens the menu at once instead of waiting for a second click.
    return memberXml + (m_presentation == Presentation::Menu ? QString() : clickXml) + endXml;
}

bool StatusNotifierItem::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.interface() == propertiesInterface)
        return handleProperties(message, connection);
    if (message.interface() != itemInterface && !message.interface().isEmpty())
        return false;
    // Hosts learn what an item cannot do by this very error.
    if (handleCall(message))
        connection.send(message.createReply());
    else
        connection.send(message.createErrorReply(QDBusError::UnknownMethod, message.member()));
    return true;
}

bool StatusNotifierItem::handleCall(const QDBusMessage &message)
{
    const QString member = message.member();
    if (member == u"Scroll" || member == u"ProvideXdgActivationToken")
        return true;
    // The menu reports the click; that Activate succeeds here would make the host wait for double clicks.
    if (member == u"Activate" && m_presentation == Presentation::Menu) {
        emit activatedBesideMenu(positionOf(message));
        return false;
    }
    if (member != u"Activate" && member != u"SecondaryActivate" && member != u"XAyatanaSecondaryActivate"
        && member != u"ContextMenu")
        return false;
    emit activated(positionOf(message));
    return true;
}

bool StatusNotifierItem::handleProperties(const QDBusMessage &message, const QDBusConnection &connection)
{
    emit wasRead();
    m_sinceQt.start();
    return answerProperties(message, connection, properties());
}

QVariantMap StatusNotifierItem::properties() const
{
    const bool hasIcon = m_presentation == Presentation::Icon;
    const QList<NotifierPixmap> icon = hasIcon ? m_pictures : QList{ emptyPixmap(1) };
    const NotifierToolTip toolTip{ {}, {}, m_toolTip, {} };
    // XFCE shows it in place of an empty tooltip.
    const bool hasTitle = m_presentation != Presentation::Icon || !m_toolTip.isEmpty();
    const QString title = hasTitle ? QStringLiteral("glimmet") : QString();
    return {
        { QStringLiteral("Category"), QStringLiteral("ApplicationStatus") },
        { QStringLiteral("Id"), QStringLiteral("glimmet") },
        { QStringLiteral("Title"), title },
        { QStringLiteral("Status"), m_active ? QStringLiteral("Active") : QStringLiteral("Passive") },
        { QStringLiteral("WindowId"), 0 },
        { QStringLiteral("IconName"), QString() },
        { QStringLiteral("IconPixmap"), QVariant::fromValue(icon) },
        { QStringLiteral("ToolTip"), QVariant::fromValue(toolTip) },
        { QStringLiteral("ItemIsMenu"), false },
        { QStringLiteral("Menu"), QVariant::fromValue(QDBusObjectPath(NotifierMenu::path)) },
        { QStringLiteral("XAyatanaLabel"), m_label },
        { QStringLiteral("XAyatanaLabelGuide"), QString() },
        { QStringLiteral("XAyatanaOrderingIndex"), 0U },
    };
}

void StatusNotifierItem::emitChange(const QString &signal, const QVariantList &arguments)
{
    if (!m_connection.isConnected())
        return;
    QDBusMessage message = QDBusMessage::createSignal(path, itemInterface, signal);
    message.setArguments(arguments);
    m_sinceQt.start();
    m_connection.send(message);
}

} // namespace glimmet
