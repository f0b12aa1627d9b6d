#include "platform/bus/TextSignal.h"

#include "tests/support/HeardSignals.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

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

TEST_F(TextSignalTest, isNotSentOnABusThatHasGone)
{
    bus.kill();
    ASSERT_TRUE(waitFor([this] { return !own.isConnected(); }));

    EXPECT_FALSE(own.isConnected());
    signal.send(own, { u"a"_s });
    EXPECT_TRUE(heard.all.isEmpty());
}

} // namespace
} // namespace glimmet
