#include "platform/desktop/StatusNotifierItem.h"
#include "platform/desktop/NotifierMenu.h"
#include "tests/support/HeardSignals.h"
#include "tests/support/ManualClock.h"
#include "tests/support/PrivateBus.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

using enum StatusNotifierItem::Presentation;

const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");

class StatusNotifierItemTest : public testing::Test {
protected:
    StatusNotifierItemTest()
        : own(bus.peer(QStringLiteral("own")))
        , host(bus.peer(QStringLiteral("host")))
    {
        own.registerService(QStringLiteral("me.kerno.glimmet"));
        item.putOn(own);
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
    ManualClock clock;
    StatusNotifierItem item{ clock };
    HeardSignals heard{ host, QStringLiteral("me.kerno.glimmet"), StatusNotifierItem::path, itemInterface,
        { QStringLiteral("XAyatanaNewLabel"), QStringLiteral("NewStatus"), QStringLiteral("NewIcon"),
            QStringLiteral("NewToolTip") } };
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

    ASSERT_TRUE(waitFor([this] { return heard.all.contains(QStringLiteral("NewStatus:Passive")); }));
    EXPECT_EQ(heard.all,
        QStringList({ QStringLiteral("NewIcon:"), QStringLiteral("XAyatanaNewLabel:a"),
            QStringLiteral("XAyatanaNewLabel:b"), QStringLiteral("NewStatus:Passive") }));
}

TEST_F(StatusNotifierItemTest, tellsEverythingInOrderWhicheverWayItIsSent)
{
    const auto label = [](int i) { return QStringLiteral("XAyatanaNewLabel:%1").arg(i); };
    item.setLabel(QString::number(-1));
    QStringList expected{ label(-1) };
    for (int i = 0; i < 100; ++i) {
        if (i % 3 == 0) {
            item.setActive(false); // By Qt, and so are the labels of some time after it.
            item.setActive(true);
            expected << QStringLiteral("NewStatus:Passive") << QStringLiteral("NewStatus:Active")
                     << label(i - 1);
        }
        if (i % 5 == 0) {
            settle(own);
            clock.pass(1s);
        }
        item.setLabel(QString::number(i));
        expected << label(i);
    }

    ASSERT_TRUE(waitFor([&] { return heard.all.size() >= expected.size(); }));
    EXPECT_EQ(heard.all, expected);
}

TEST_F(StatusNotifierItemTest, tellsItsTextWhileItIsPassiveToWhoFollowsIt)
{
    item.setActive(false);
    item.setFollowed(true);

    item.setLabel(QStringLiteral("a"));

    EXPECT_TRUE(waitFor([this] { return heard.all.contains(QStringLiteral("XAyatanaNewLabel:a")); }));
}

TEST_F(StatusNotifierItemTest, keepsItsTextFromAHostThatKnowsNoLabels)
{
    item.setLabelHeard(false);
    item.setLabel(QStringLiteral("a"));
    item.setActive(false);

    ASSERT_TRUE(waitFor([this] { return heard.all.contains(QStringLiteral("NewStatus:Passive")); }));
    EXPECT_EQ(heard.all, QStringList({ QStringLiteral("NewStatus:Passive") }));
    EXPECT_EQ(property(QStringLiteral("XAyatanaLabel")), QStringLiteral("a"));
}

TEST_F(StatusNotifierItemTest, keepsStillWhileItIsPassiveAndThenTellsItsText)
{
    item.setPresentation(Label);
    item.setActive(false);
    item.setLabel(QStringLiteral("a"));
    item.setLabel(QStringLiteral("b"));
    EXPECT_EQ(property(QStringLiteral("XAyatanaLabel")), QStringLiteral("b"));
    heard.all.clear();

    item.setActive(true);

    ASSERT_TRUE(waitFor([this] { return heard.all.size() == 2; }));
    EXPECT_EQ(
        heard.all, QStringList({ QStringLiteral("NewStatus:Active"), QStringLiteral("XAyatanaNewLabel:b") }));
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
    // Also where the menu is the other button's: a host takes any path for a menu, and an empty one is drawn.
    EXPECT_EQ(all.value(QStringLiteral("Menu")).value<QDBusObjectPath>().path(), NotifierMenu::path);
    EXPECT_EQ(all.value(QStringLiteral("ItemIsMenu")), false);
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

TEST_F(StatusNotifierItemTest, tellsOfItsToolTipWhenAskedTo)
{
    item.setToolTip(QStringLiteral("11:59"));
    item.setToolTip(QStringLiteral("12:00"));
    item.announceToolTip();
    item.setActive(false);

    ASSERT_TRUE(waitFor([this] { return heard.all.contains(QStringLiteral("NewStatus:Passive")); }));
    EXPECT_EQ(heard.all, QStringList({ QStringLiteral("NewToolTip:"), QStringLiteral("NewStatus:Passive") }));
    NotifierToolTip toolTip;
    property(QStringLiteral("ToolTip")).value<QDBusArgument>() >> toolTip;
    EXPECT_EQ(toolTip.title, QStringLiteral("12:00"));
}

TEST_F(StatusNotifierItemTest, hasNoTitleEitherWhereAPanelWouldShowThatAsItsToolTip)
{
    item.setToolTip(QStringLiteral("12:00"));
    EXPECT_EQ(property(QStringLiteral("Title")), QStringLiteral("glimmet"));

    item.setToolTip(QString());
    EXPECT_EQ(property(QStringLiteral("Title")), QString());

    item.setPresentation(Menu);
    EXPECT_EQ(property(QStringLiteral("Title")), QStringLiteral("glimmet"));
}

TEST_F(StatusNotifierItemTest, offersItsPicturesWhereIconsAreShown)
{
    item.setPictures({ emptyPixmap(22), emptyPixmap(44) });
    QList<NotifierPixmap> pictures;
    property(QStringLiteral("IconPixmap")).value<QDBusArgument>() >> pictures;
    ASSERT_EQ(pictures.size(), 2);
    EXPECT_EQ(pictures.at(1).width, 44);
    EXPECT_EQ(pictures.at(1).bytes.size(), 44 * 44 * 4);

    // Beside a label no room is given to an icon.
    item.setPresentation(Label);
    property(QStringLiteral("IconPixmap")).value<QDBusArgument>() >> pictures;
    ASSERT_EQ(pictures.size(), 1);
    EXPECT_EQ(pictures.first().width, 1);
}

} // namespace
} // namespace glimmet
