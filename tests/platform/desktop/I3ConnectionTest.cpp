#include "platform/desktop/I3Connection.h"

#include "tests/support/PrivateBus.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace glimmet {
namespace {

using I3Ipc::Type;

class I3Connected : public testing::Test {
protected:
    I3Connected()
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(path.begin(), path.end(), static_cast<char *>(address.sun_path));
        EXPECT_EQ(bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(listener, 1), 0);
    }
    ~I3Connected() override
    {
        close(listener);
        if (peer >= 0)
            close(peer);
    }
    Q_DISABLE_COPY_MOVE(I3Connected)

    void meet(I3Connection &connection)
    {
        peer = accept(listener, nullptr, nullptr);
        ASSERT_GE(peer, 0);
        QObject::connect(&connection, &I3Connection::received, &connection,
            [this](const QByteArray &payload) { received.append(payload); });
    }
    /// Empty where the connection has ended.
    QByteArray heard() const
    {
        std::array<char, 200> part{};
        const ssize_t size = recv(peer, part.data(), part.size(), MSG_DONTWAIT);
        return size < 0 ? QByteArray("nothing yet") : QByteArray(part.data(), size);
    }
    void say(const QByteArray &bytes) const
    {
        EXPECT_EQ(write(peer, bytes.constData(), static_cast<size_t>(bytes.size())), bytes.size());
    }

    QTemporaryDir folder;
    QByteArray path = folder.filePath(QStringLiteral("socket")).toUtf8();
    int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int peer = -1;
    QByteArrayList received;
};

TEST_F(I3Connected, sendsAndReceivesMessageByMessage)
{
    I3Connection connection(path);
    meet(connection);

    connection.send(Type::Subscribe, I3Ipc::windowEvents);
    EXPECT_EQ(heard(), I3Ipc::message(Type::Subscribe, R"(["window"])"));
    const QByteArray longer(10'000, 'x');
    say(I3Ipc::message(Type::Subscribe, "one") + I3Ipc::message(Type::Subscribe, longer));

    EXPECT_TRUE(waitFor([this] { return received.size() == 2; }));
    EXPECT_EQ(received, (QByteArrayList{ "one", longer }));
}

TEST_F(I3Connected, receivesNothingAfterItsEndAlsoOfWhatHasArrived)
{
    I3Connection connection(path);
    meet(connection);
    QObject::connect(&connection, &I3Connection::received, &connection, &I3Connection::end);

    say(I3Ipc::message(Type::Subscribe, "one") + I3Ipc::message(Type::Subscribe, "two"));

    EXPECT_TRUE(waitFor([this] { return !received.isEmpty(); }));
    EXPECT_EQ(received, QByteArrayList{ "one" });
    EXPECT_EQ(heard(), QByteArray()) << "it is closed";
}

TEST_F(I3Connected, survivesToSpeakToOneThatHasGone)
{
    I3Connection connection(path);
    meet(connection);

    close(std::exchange(peer, -1));
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
