#include "platform/desktop/StatusNotifierItem.h"
#include "tests/support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using enum StatusNotifierItem::Presentation;

const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

/// Keeps the signals that a host would hear.
class Listener : public QObject {
    Q_OBJECT

public:
    QStringList heard;

public slots:
    void hear(const QDBusMessage &message)
    {
        heard.append(message.member() + u':' + message.arguments().value(0).toString());
    }
};

class StatusNotifierItemTest : public testing::Test {
protected:
    StatusNotifierItemTest()
        : own(bus.peer(QStringLiteral("own")))
        , host(bus.peer(QStringLiteral("host")))
    {
        own.registerService(QStringLiteral("me.kerno.glimmet"));
        item.putOn(own);
        for (const char *signal : { "XAyatanaNewLabel", "NewStatus", "NewIcon", "NewToolTip" })
            host.connect(QStringLiteral("me.kerno.glimmet"), StatusNotifierItem::path, itemInterface,
                QString::fromLatin1(signal), &listener, SLOT(hear(QDBusMessage)));
    }
    ~StatusNotifierItemTest() override
    {
        for (const char *name : { "own", "host" })
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }

    QVariant property(const QString &name)
    {
        const QDBusMessage reply =
            call(host, StatusNotifierItem::path, QStringLiteral("org.freedesktop.DBus.Properties"),
                QStringLiteral("Get"), { itemInterface, name });
        return reply.arguments().value(0).value<QDBusVariant>().variant();
    }
    QDBusMessage click(const QString &method)
    {
        return call(host, StatusNotifierItem::path, itemInterface, method, { 10, 20 });
    }
    QString introspection()
    {
        return call(host, StatusNotifierItem::path, QStringLiteral("org.freedesktop.DBus.Introspectable"),
            QStringLiteral("Introspect"))
            .arguments()
            .value(0)
            .toString();
    }

    PrivateBus bus;
    QDBusConnection own;
    QDBusConnection host;
    StatusNotifierItem item;
    Listener listener;
};

TEST_F(StatusNotifierItemTest, showsItsTextAsTheLabel)
{
    item.setLabel(QStringLiteral("deep work > busy work"));

    EXPECT_EQ(property(QStringLiteral("XAyatanaLabel")), QStringLiteral("deep work > busy work"));
}

TEST_F(StatusNotifierItemTest, sendsTheLabelOnlyWhenItChanges)
{
    item.setPresentation(Label);
    item.setLabel(QStringLiteral("a"));
    item.setLabel(QStringLiteral("a"));
    item.setLabel(QStringLiteral("b"));
    item.setActive(false);

    ASSERT_TRUE(waitFor([this] { return listener.heard.contains(QStringLiteral("NewStatus:Passive")); }));
    EXPECT_EQ(listener.heard,
        QStringList({ QStringLiteral("NewIcon:"), QStringLiteral("XAyatanaNewLabel:a"),
            QStringLiteral("XAyatanaNewLabel:b"), QStringLiteral("NewStatus:Passive") }));
}

TEST_F(StatusNotifierItemTest, answersEveryPropertyWithTheProtocolsType)
{
    const QDBusMessage reply = call(host, StatusNotifierItem::path,
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("GetAll"), { itemInterface });
    const auto all = qdbus_cast<QVariantMap>(reply.arguments().value(0));

    EXPECT_EQ(all.value(QStringLiteral("Id")), QStringLiteral("glimmet"));
    EXPECT_EQ(all.value(QStringLiteral("Category")), QStringLiteral("ApplicationStatus"));
    EXPECT_EQ(all.value(QStringLiteral("Status")), QStringLiteral("Active"));
    EXPECT_EQ(all.value(QStringLiteral("WindowId")).metaType().id(), QMetaType::Int);
    EXPECT_EQ(all.value(QStringLiteral("XAyatanaOrderingIndex")).metaType().id(), QMetaType::UInt);
    EXPECT_EQ(all.value(QStringLiteral("IconPixmap")).value<QDBusArgument>().currentSignature(),
        QStringLiteral("a(iiay)"));
    EXPECT_EQ(all.value(QStringLiteral("ToolTip")).value<QDBusArgument>().currentSignature(),
        QStringLiteral("(sa(iiay)ss)"));
    EXPECT_EQ(
        all.value(QStringLiteral("Menu")).value<QDBusObjectPath>().path(), QStringLiteral("/NO_DBUSMENU"));
}

TEST_F(StatusNotifierItemTest, tellsOfAClickWithAnyButton)
{
    QSignalSpy activated(&item, &StatusNotifierItem::activated);

    for (const char *method : { "Activate", "SecondaryActivate", "ContextMenu", "XAyatanaSecondaryActivate" })
        EXPECT_EQ(click(QString::fromLatin1(method)).type(), QDBusMessage::ReplyMessage) << method;

    ASSERT_EQ(activated.count(), 4);
    EXPECT_EQ(activated.first().first().toPoint(), QPoint(10, 20));
}

TEST_F(StatusNotifierItemTest, leavesClicksToTheMenuForAHostThatShowsMenus)
{
    QSignalSpy activated(&item, &StatusNotifierItem::activated);
    QSignalSpy beside(&item, &StatusNotifierItem::activatedBesideMenu);
    EXPECT_TRUE(introspection().contains(QStringLiteral("\"Activate\"")));

    item.setPresentation(Menu);

    EXPECT_EQ(click(QStringLiteral("Activate")).errorName(),
        QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
    EXPECT_EQ(activated.count(), 0);
    EXPECT_EQ(beside.count(), 1);
    EXPECT_FALSE(introspection().contains(QStringLiteral("\"Activate\"")));
    EXPECT_EQ(property(QStringLiteral("Menu")).value<QDBusObjectPath>().path(),
        QStringLiteral("/StatusNotifierItem/Menu"));
}

TEST_F(StatusNotifierItemTest, answersUnknownMethodsByTheErrorThatHostsLookFor)
{
    EXPECT_EQ(click(QStringLiteral("Dance")).errorName(),
        QStringLiteral("org.freedesktop.DBus.Error.UnknownMethod"));
}

TEST_F(StatusNotifierItemTest, tellsThatAHostHasLookedAtIt)
{
    QSignalSpy read(&item, &StatusNotifierItem::wasRead);

    property(QStringLiteral("Id"));

    EXPECT_EQ(read.count(), 1);
}

TEST_F(StatusNotifierItemTest, carriesItsTextAsTheToolTipWhereOnlyAnIconIsShown)
{
    item.setLabel(QStringLiteral("12:00"));

    ASSERT_TRUE(waitFor([this] { return listener.heard.contains(QStringLiteral("NewToolTip:")); }));
    const auto toolTip = property(QStringLiteral("ToolTip")).value<QDBusArgument>();
    QString iconName;
    toolTip.beginStructure();
    toolTip >> iconName;
    EXPECT_EQ(toolTip.currentSignature(), QStringLiteral("a(iiay)"));
}

} // namespace
} // namespace glimmet

#include "StatusNotifierItemTest.moc"
