#include "platform/desktop/I3Connection.h"

#include "tests/support/FakeI3.h"
#include "tests/support/PrivateBus.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using I3Ipc::Type;

class I3Connected : public testing::Test {
protected:
    I3Connected()
    {
        i3.meet();
        QObject::connect(&connection, &I3Connection::received, &connection,
            [this](const QByteArray &payload) { received.append(payload); });
    }

    FakeI3 i3;
    I3Connection connection{ i3.path() };
    QByteArrayList received;
};

TEST_F(I3Connected, sendsAndReceivesMessageByMessage)
{
    connection.send(Type::Subscribe, I3Ipc::windowEvents);
    EXPECT_EQ(i3.heard(), I3Ipc::message(Type::Subscribe, R"(["window"])"));
    const QByteArray longer(10'000, 'x');
    i3.say(I3Ipc::message(Type::Subscribe, "one") + I3Ipc::message(Type::Subscribe, longer));

    EXPECT_TRUE(waitFor([this] { return received.size() == 2; }));
    EXPECT_EQ(received, (QByteArrayList{ "one", longer }));
}

TEST_F(I3Connected, receivesNothingAfterItsEndAlsoOfWhatHasArrived)
{
    QObject::connect(&connection, &I3Connection::received, &connection, &I3Connection::end);

    i3.say(I3Ipc::message(Type::Subscribe, "one") + I3Ipc::message(Type::Subscribe, "two"));

    EXPECT_TRUE(waitFor([this] { return !received.isEmpty(); }));
    EXPECT_EQ(received, QByteArrayList{ "one" });
    EXPECT_EQ(i3.heard(), QByteArray()) << "it is closed";
}

TEST_F(I3Connected, survivesToSpeakToOneThatHasGone)
{
    i3.leave();
    connection.send(Type::GetBarConfig, {});

    EXPECT_TRUE(received.isEmpty());
}

TEST(I3Connection, speaksToNobodyWhereNobodyListens)
{
    for (const QByteArray &path : { QByteArray(), QByteArray("/nonexistent/socket"), QByteArray(200, 'x') }) {
        I3Connection connection(path);
        connection.send(Type::GetBarConfig, {});
        connection.end();
    }
}

} // namespace
} // namespace glimmet
