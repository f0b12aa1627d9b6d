#include "platform/bus/BusCalls.h"
#include "platform/bus/BusDaemon.h"
#include "tests/support/PrivateBus.h"

#include <QDBusPendingReply>
#include <QPointer>

#include <gtest/gtest.h>

#include <memory>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// Asks the bus itself, which always answers.
class CallLaterTest : public testing::Test {
protected:
    ~CallLaterTest() override { QDBusConnection::disconnectFromBus(bus.name()); }

    /// The bus's identity is asked for, or the owner of a name that has none.
    static QDBusMessage question() { return BusDaemon::method(u"GetId"_s); }
    static QDBusMessage refusedQuestion() { return BusDaemon::ownerQuestion(u"nobody.has.this"_s); }

    QObject *ask(const QDBusMessage &message, QObject *asker)
    {
        return callLater(bus, message, asker, [this](const QDBusPendingReply<QString> &answer) {
            ++answers;
            text = answer.isError() ? answer.error().name() : answer.value();
        });
    }
    bool isAnswered() const
    {
        return waitFor([this] { return answers > 0; });
    }

    PrivateBus daemon;
    QDBusConnection bus = daemon.peer(u"asking"_s);
    std::unique_ptr<QObject> receiver = std::make_unique<QObject>();
    int answers = 0;
    QString text;
};

TEST_F(CallLaterTest, tellsTheAnswerOnce)
{
    ask(question(), receiver.get());

    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(text.size(), 32);
    settle(bus);
    EXPECT_EQ(answers, 1);
}

TEST_F(CallLaterTest, tellsTheErrorOnce)
{
    ask(refusedQuestion(), receiver.get());

    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(text, u"org.freedesktop.DBus.Error.NameHasNoOwner"_s);
    settle(bus);
    EXPECT_EQ(answers, 1);
}

TEST_F(CallLaterTest, answersFromTheEventLoopOnly)
{
    ask(question(), receiver.get());
    // By now the answer of before is there, too.
    EXPECT_EQ(bus.call(question()).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(answers, 0);

    EXPECT_TRUE(isAnswered());
}

TEST_F(CallLaterTest, tellsNothingOnceTheReceiverIsGone)
{
    const QPointer<QObject> call = ask(question(), receiver.get());

    receiver.reset();
    EXPECT_TRUE(call.isNull());
    settle(bus);

    EXPECT_EQ(answers, 0);
}

TEST_F(CallLaterTest, tellsNothingOnceTheCallWasDeleted)
{
    delete ask(question(), receiver.get());
    settle(bus);

    EXPECT_EQ(answers, 0);
}

TEST_F(CallLaterTest, leavesNothingBehindOnceItIsAnswered)
{
    ask(question(), receiver.get());
    ASSERT_TRUE(isAnswered());

    EXPECT_TRUE(waitFor([this] { return receiver->children().isEmpty(); }));
}

TEST_F(CallLaterTest, bearsAReceiverThatTheAnswerDestroys)
{
    callLater(bus, question(), receiver.get(), [this](const QDBusPendingCall &) {
        receiver.reset();
        ++answers;
    });

    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(receiver, nullptr);
}

TEST_F(CallLaterTest, tellsThatTheBusTookTooLong)
{
    daemon.halt();
    const int limit = 20; // milliseconds, which the D-Bus library counts by itself
    callLater(
        bus, question(), receiver.get(),
        [this](const QDBusPendingReply<QString> &answer) {
            ++answers;
            text = answer.error().name();
        },
        limit);

    EXPECT_TRUE(isAnswered());
    EXPECT_EQ(text, u"org.freedesktop.DBus.Error.NoReply"_s);
    daemon.goOn();
}

TEST_F(CallLaterTest, isNeverAnsweredWithoutAConnection)
{
    callLater(QDBusConnection(QString()), question(), receiver.get(), [this](auto) { ++answers; });

    settle(bus);

    EXPECT_EQ(answers, 0);
}

TEST(ConnectAfresh, makesAConnectionOfItsOwnEachTime)
{
    const PrivateBus daemon;
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");

    const QDBusConnection first = connectAfresh(address, u"fresh-"_s);
    const QDBusConnection second = connectAfresh(address, u"fresh-"_s);

    EXPECT_NE(first.baseService(), second.baseService());
    for (const QDBusConnection &connection : { first, second }) {
        EXPECT_TRUE(connection.name().startsWith(u"fresh-"));
        QDBusConnection::disconnectFromBus(connection.name());
    }
}

} // namespace
} // namespace glimmet
