#include "platform/desktop/NotifierMenu.h"
#include "tests/support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

class NotifierMenuTest : public testing::Test {
protected:
    NotifierMenuTest()
        : own(bus.peer(QStringLiteral("own")))
        , host(bus.peer(QStringLiteral("host")))
    {
        own.registerService(QStringLiteral("me.kerno.glimmet"));
        menu.putOn(own);
    }
    ~NotifierMenuTest() override
    {
        for (const char *name : { "own", "host" })
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }

    void sendEvent(int entry, const QString &event)
    {
        call(host, NotifierMenu::path, menuInterface, QStringLiteral("Event"),
            { entry, event, QVariant::fromValue(QDBusVariant(0)), 0U });
    }

    PrivateBus bus;
    QDBusConnection own;
    QDBusConnection host;
    NotifierMenu menu{ { QStringLiteral("Show it"), QStringLiteral("End") } };
};

TEST_F(NotifierMenuTest, laysOutTwoEntriesUnderItsRoot)
{
    const QDBusMessage reply =
        call(host, NotifierMenu::path, menuInterface, QStringLiteral("GetLayout"), { 0, -1, QStringList() });

    const auto layout = reply.arguments().value(1).value<QDBusArgument>();
    EXPECT_EQ(layout.currentSignature(), QStringLiteral("(ia{sv}av)"));
    int root = -1;
    QVariantMap properties;
    QVariantList children;
    layout.beginStructure();
    layout >> root >> properties >> children;
    EXPECT_EQ(root, 0);
    EXPECT_EQ(children.size(), 2);
}

TEST_F(NotifierMenuTest, namesItsEntriesAsItWasTold)
{
    const auto label = [this](int entry) {
        return call(host, NotifierMenu::path, menuInterface, QStringLiteral("GetProperty"),
            { entry, QStringLiteral("label") })
            .arguments()
            .value(0)
            .value<QDBusVariant>()
            .variant()
            .toString();
    };

    EXPECT_EQ(label(1), QStringLiteral("Show it"));
    EXPECT_EQ(label(2), QStringLiteral("End"));
}

TEST_F(NotifierMenuTest, tellsThatItOpenedAndWhatWasChosen)
{
    QSignalSpy opened(&menu, &NotifierMenu::opened);
    QSignalSpy closed(&menu, &NotifierMenu::closed);
    QSignalSpy openChosen(&menu, &NotifierMenu::openChosen);
    QSignalSpy quitChosen(&menu, &NotifierMenu::quitChosen);

    sendEvent(0, QStringLiteral("opened"));
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(closed.count() + openChosen.count() + quitChosen.count(), 0);

    sendEvent(0, QStringLiteral("closed"));
    EXPECT_EQ(closed.count(), 1);
    EXPECT_EQ(opened.count() + openChosen.count() + quitChosen.count(), 1);

    sendEvent(1, QStringLiteral("clicked"));
    sendEvent(2, QStringLiteral("clicked"));
    EXPECT_EQ(openChosen.count(), 1);
    EXPECT_EQ(quitChosen.count(), 1);
}

/// One of a(isvu).
struct GroupedEvent {
    int entry;
    QString name;
};

QDBusArgument &operator<<(QDBusArgument &argument, const GroupedEvent &event)
{
    argument.beginStructure();
    argument << event.entry << event.name << QDBusVariant(0) << 0U;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, GroupedEvent &)
{
    return argument;
}

} // namespace
} // namespace glimmet

Q_DECLARE_METATYPE(glimmet::GroupedEvent)

namespace glimmet {
namespace {

TEST_F(NotifierMenuTest, hearsEventsThatComeAsAGroup)
{
    qDBusRegisterMetaType<GroupedEvent>();
    qDBusRegisterMetaType<QList<GroupedEvent>>();
    QSignalSpy openChosen(&menu, &NotifierMenu::openChosen);
    QSignalSpy quitChosen(&menu, &NotifierMenu::quitChosen);
    const QList<GroupedEvent> events{ { 1, QStringLiteral("clicked") }, { 2, QStringLiteral("hovered") },
        { 7, QStringLiteral("clicked") } };

    const QDBusMessage reply = call(host, NotifierMenu::path, menuInterface, QStringLiteral("EventGroup"),
        { QVariant::fromValue(events) });

    EXPECT_EQ(reply.signature(), QStringLiteral("ai"));
    EXPECT_EQ(openChosen.count(), 1);
    EXPECT_EQ(quitChosen.count(), 0);

    // Anything else is answered, too.
    EXPECT_EQ(call(host, NotifierMenu::path, menuInterface, QStringLiteral("EventGroup"), { 1 }).type(),
        QDBusMessage::ReplyMessage);
    EXPECT_EQ(openChosen.count(), 1);
}

TEST_F(NotifierMenuTest, tellsThatAHostIsAboutToOpenIt)
{
    QSignalSpy asked(&menu, &NotifierMenu::asked);

    call(host, NotifierMenu::path, menuInterface, QStringLiteral("AboutToShowGroup"),
        { QVariant::fromValue(QList<int>{ 0 }) });

    EXPECT_EQ(asked.count(), 1);
}

TEST_F(NotifierMenuTest, answersByAnErrorWhereThereIsNoSuchProperty)
{
    EXPECT_EQ(call(host, NotifierMenu::path, menuInterface, QStringLiteral("GetProperty"),
                  { 1, QStringLiteral("colour") })
                  .type(),
        QDBusMessage::ErrorMessage);
    EXPECT_EQ(call(host, NotifierMenu::path, QStringLiteral("org.freedesktop.DBus.Properties"),
                  QStringLiteral("Get"), { menuInterface, QStringLiteral("Colour") })
                  .type(),
        QDBusMessage::ErrorMessage);
}

TEST_F(NotifierMenuTest, refusesWhatItDoesNotKnow)
{
    EXPECT_EQ(call(host, NotifierMenu::path, menuInterface, QStringLiteral("Dance")).type(),
        QDBusMessage::ErrorMessage);
}

} // namespace
} // namespace glimmet
