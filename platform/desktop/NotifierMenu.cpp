#include "platform/desktop/NotifierMenu.h"

#include "platform/bus/BusProperties.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>

#include <utility>

namespace glimmet {
namespace {

constexpr int rootEntry = 0;
constexpr int openEntry = 1;
constexpr int quitEntry = 2;
constexpr uint revision = 1;

const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

QVariantMap entryProperties(int entry, const NotifierMenu::Words &words)
{
    if (entry == openEntry)
        return { { QStringLiteral("label"), words.open } };
    if (entry == quitEntry)
        return { { QStringLiteral("label"), words.quit } };
    return { { QStringLiteral("children-display"), QStringLiteral("submenu") } };
}

/// A node of the layout, signature (ia{sv}av).
struct MenuNode {
    int id = rootEntry;
    QVariantMap properties;
    QVariantList children;
};

QDBusArgument &operator<<(QDBusArgument &argument, const MenuNode &node)
{
    argument.beginStructure();
    argument << node.id << node.properties;
    argument.beginArray(qMetaTypeId<QDBusVariant>());
    for (const QVariant &child : node.children)
        argument << QDBusVariant(child);
    argument.endArray();
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, MenuNode &node)
{
    argument.beginStructure();
    argument >> node.id >> node.properties >> node.children;
    argument.endStructure();
    return argument;
}

/// Properties of one entry, signature (ia{sv}).
struct EntryProperties {
    int id = rootEntry;
    QVariantMap properties;
};

QDBusArgument &operator<<(QDBusArgument &argument, const EntryProperties &entry)
{
    argument.beginStructure();
    argument << entry.id << entry.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, EntryProperties &entry)
{
    argument.beginStructure();
    argument >> entry.id >> entry.properties;
    argument.endStructure();
    return argument;
}

QVariant node(int entry, const NotifierMenu::Words &words)
{
    MenuNode menuNode{ entry, entryProperties(entry, words), {} };
    if (entry == rootEntry)
        menuNode.children = { node(openEntry, words), node(quitEntry, words) };
    return QVariant::fromValue(menuNode);
}

QVariant groupProperties(const NotifierMenu::Words &words)
{
    QList<EntryProperties> group;
    for (const int entry : { rootEntry, openEntry, quitEntry })
        group.append({ entry, entryProperties(entry, words) });
    return QVariant::fromValue(group);
}

QVariantMap menuProperties()
{
    return {
        { QStringLiteral("Version"), 3U },
        { QStringLiteral("TextDirection"), QStringLiteral("ltr") },
        { QStringLiteral("Status"), QStringLiteral("normal") },
        { QStringLiteral("IconThemePath"), QStringList() },
    };
}

/// What a host tells of an entry; its data and its time are not of interest.
struct MenuEvent {
    int entry = rootEntry;
    QString name;
};

/// The argument of EventGroup, signature a(isvu); nothing where it is anything else.
QList<MenuEvent> eventsOf(const QDBusMessage &message)
{
    QList<MenuEvent> events;
    if (message.signature() != u"a(isvu)")
        return events;
    const auto group = message.arguments().constFirst().value<QDBusArgument>();
    group.beginArray();
    while (!group.atEnd()) {
        MenuEvent event;
        QDBusVariant data;
        uint time = 0;
        group.beginStructure();
        group >> event.entry >> event.name >> data >> time;
        group.endStructure();
        events.append(event);
    }
    group.endArray();
    return events;
}

/// The answer that holds one property; nothing where there is no such property, for which the bus has no
/// value.
std::optional<QVariantList> valueIn(const QVariantMap &properties, const QString &name)
{
    const auto found = properties.constFind(name);
    if (found == properties.cend())
        return std::nullopt;
    return QVariantList{ QVariant::fromValue(QDBusVariant(*found)) };
}

/// The answer to a call that only asks; nothing where the call is none of these.
std::optional<QVariantList> answerTo(const QDBusMessage &message, const NotifierMenu::Words &words)
{
    const QString member = message.member();
    const QVariantList arguments = message.arguments();
    if (member == u"GetLayout")
        return QVariantList{ revision, node(arguments.value(0).toInt(), words) };
    if (member == u"GetGroupProperties")
        return QVariantList{ groupProperties(words) };
    if (member == u"GetProperty")
        return valueIn(entryProperties(arguments.value(0).toInt(), words), arguments.value(1).toString());
    if (member == u"AboutToShow")
        return QVariantList{ false };
    if (member == u"AboutToShowGroup")
        return QVariantList{ QVariant::fromValue(QList<int>()), QVariant::fromValue(QList<int>()) };
    if (member == u"Event")
        return QVariantList{};
    if (member == u"EventGroup")
        return QVariantList{ QVariant::fromValue(QList<int>()) };
    return std::nullopt;
}

} // namespace
} // namespace glimmet

Q_DECLARE_METATYPE(glimmet::MenuNode)
Q_DECLARE_METATYPE(glimmet::EntryProperties)

namespace glimmet {

const QString NotifierMenu::path = QStringLiteral("/StatusNotifierItem/Menu");

NotifierMenu::NotifierMenu(Words words, QObject *parent)
    : QDBusVirtualObject(parent)
    , m_words(std::move(words))
{
}

bool NotifierMenu::putOn(const QDBusConnection &connection)
{
    qDBusRegisterMetaType<MenuNode>();
    qDBusRegisterMetaType<EntryProperties>();
    qDBusRegisterMetaType<QList<EntryProperties>>();
    qDBusRegisterMetaType<QList<int>>();
    return QDBusConnection(connection).registerVirtualObject(path, this);
}

QString NotifierMenu::introspect(const QString &) const
{
    return QStringLiteral(R"xml(  <interface name="com.canonical.dbusmenu">
    <property name="Version" type="u" access="read"/>
    <property name="TextDirection" type="s" access="read"/>
    <property name="Status" type="s" access="read"/>
    <property name="IconThemePath" type="as" access="read"/>
    <method name="GetLayout"><arg type="i" direction="in"/><arg type="i" direction="in"/><arg type="as" direction="in"/><arg type="u" direction="out"/><arg type="(ia{sv}av)" direction="out"/></method>
    <method name="GetGroupProperties"><arg type="ai" direction="in"/><arg type="as" direction="in"/><arg type="a(ia{sv})" direction="out"/></method>
    <method name="GetProperty"><arg type="i" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/></method>
    <method name="Event"><arg type="i" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="in"/><arg type="u" direction="in"/></method>
    <method name="EventGroup"><arg type="a(isvu)" direction="in"/><arg type="ai" direction="out"/></method>
    <method name="AboutToShow"><arg type="i" direction="in"/><arg type="b" direction="out"/></method>
    <method name="AboutToShowGroup"><arg type="ai" direction="in"/><arg type="ai" direction="out"/><arg type="ai" direction="out"/></method>
    <signal name="LayoutUpdated"><arg type="u"/><arg type="i"/></signal>
    <signal name="ItemsPropertiesUpdated"><arg type="a(ia{sv})"/><arg type="a(ias)"/></signal>
  </interface>
)xml");
}

bool NotifierMenu::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.interface() == propertiesInterface)
        return answerProperties(message, connection, menuProperties());
    const auto answer = answerTo(message, m_words);
    if (!answer)
        return false;
    connection.send(message.createReply(*answer));
    if (message.member() == u"GetLayout")
        emit wasRead();
    if (message.member() == u"Event")
        handleEvent(message.arguments().value(0).toInt(), message.arguments().value(1).toString());
    if (message.member() == u"EventGroup")
        for (const MenuEvent &event : eventsOf(message))
            handleEvent(event.entry, event.name);
    // Of the hosts that this is known of none asks so before the user does.
    if (message.member() == u"AboutToShowGroup")
        emit asked();
    return true;
}

void NotifierMenu::handleEvent(int entry, const QString &event)
{
    if (entry == rootEntry && event == u"opened")
        emit opened();
    if (entry == rootEntry && event == u"closed")
        emit closed();
    if (entry == openEntry && event == u"clicked")
        emit openChosen();
    if (entry == quitEntry && event == u"clicked")
        emit quitChosen();
}

} // namespace glimmet
