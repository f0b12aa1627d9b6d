#include "platform/bus/TextSignal.h"

#include "tests/support/HeardSignals.h"
#include "tests/support/PrivateBus.h"

#include <dbus/dbus.h>
#include <gtest/gtest.h>

#include <latch>
#include <semaphore>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// Qt's thread, standing still in a message that `other` has sent over `connection`.
class HeldThread {
public:
    HeldThread(const QDBusConnection &connection, const QDBusConnection &other)
        : m_native(static_cast<DBusConnection *>(connection.internalPointer()))
    {
        dbus_connection_add_filter(m_native, hold, this, nullptr);
        other.send(
            QDBusMessage::createTargetedSignal(connection.baseService(), u"/hold"_s, u"a.b"_s, u"Hold"_s));
        m_isHeld.acquire();
    }
    ~HeldThread()
    {
        dbus_connection_remove_filter(m_native, hold, this);
        m_goesOn.count_down();
        m_isOver.acquire();
    }
    Q_DISABLE_COPY_MOVE(HeldThread)

private:
    static DBusHandlerResult hold(DBusConnection *, DBusMessage *message, void *context)
    {
        if (!dbus_message_is_signal(message, "a.b", "Hold"))
            return DBUS_HANDLER_RESULT_NOT_YET_HANDLED;
        auto &self = *static_cast<HeldThread *>(context);
        self.m_isHeld.release();
        self.m_goesOn.wait();
        self.m_isOver.release();
        return DBUS_HANDLER_RESULT_HANDLED;
    }

    DBusConnection *m_native;
    std::binary_semaphore m_isHeld{ 0 };
    std::latch m_goesOn{ 1 };
    std::binary_semaphore m_isOver{ 0 };
};

class TextSignalTest : public testing::Test {
protected:
    TextSignalTest() { own.registerService(u"me.kerno.glimmet"_s); }
    ~TextSignalTest() override
    {
        for (const char *name : { "own", "listener" })
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }

    PrivateBus bus;
    QDBusConnection own = bus.peer(u"own"_s);
    QDBusConnection listener = bus.peer(u"listener"_s);
    HeardSignals heard{ listener, u"me.kerno.glimmet"_s, u"/a"_s, u"a.b"_s, { u"Changed"_s } };
    const TextSignal signal{ "/a", "a.b", "Changed" };
};

TEST_F(TextSignalTest, isHeardWithItsTextsInOrder)
{
    for (const QString &text : { u"09:05:07"_s, u"٨:٠٥ ✦"_s, QString() })
        EXPECT_TRUE(signal.send(own, { text, u"guide"_s }));

    ASSERT_TRUE(waitFor([this] { return heard.all.size() == 3; }));
    EXPECT_EQ(heard.all, QStringList({ u"Changed:09:05:07"_s, u"Changed:٨:٠٥ ✦"_s, u"Changed:"_s }));
}

TEST_F(TextSignalTest, isNotSentWithoutAConnection)
{
    EXPECT_FALSE(signal.send(QDBusConnection(QString()), { u"a"_s }));
}

TEST_F(TextSignalTest, leavesABusThatDoesNotReadToQtAndNothingIsLost)
{
    bus.halt();
    const QString text(1000, u'x');
    int sent = 0;
    while (signal.send(own, { text }))
        ASSERT_LT(++sent, 10'000);

    EXPECT_GT(sent, 10);
    own.send([&] {
        QDBusMessage last = QDBusMessage::createSignal(u"/a"_s, u"a.b"_s, u"Changed"_s);
        last << u"last"_s;
        return last;
    }());
    bus.goOn();
    ASSERT_TRUE(waitFor([this] { return heard.all.contains(u"Changed:last"_s); }));
    EXPECT_EQ(heard.all.size(), sent + 1);
}

TEST_F(TextSignalTest, leavesATextThatDoesNotFitToQtWhole)
{
    EXPECT_FALSE(signal.send(own, { QString(1'000'000, u'x') }));

    EXPECT_TRUE(signal.send(own, { u"a"_s }));
    ASSERT_TRUE(waitFor([this] { return !heard.all.isEmpty(); }));
    EXPECT_EQ(heard.all, QStringList{ u"Changed:a"_s });
}

TEST_F(TextSignalTest, isNotSentOnABusThatHasGone)
{
    bus.kill();
    ASSERT_TRUE(waitFor([this] { return !own.isConnected(); }));

    EXPECT_FALSE(signal.send(own, { u"a"_s }));
}

TEST_F(TextSignalTest, leavesTheLossOfABusToQtsThread)
{
    {
        const HeldThread held(own, listener);
        bus.halt();
        ASSERT_TRUE(signal.send(own, { u"unread"_s }));
        bus.kill();

        EXPECT_FALSE(signal.send(own, { u"a"_s }));
        EXPECT_TRUE(own.isConnected());
    }
    EXPECT_TRUE(waitFor([this] { return !own.isConnected(); }));
}

} // namespace
} // namespace glimmet
