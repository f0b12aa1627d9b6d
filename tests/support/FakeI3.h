#pragma once

#include <QByteArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace glimmet {

/// The other end of an I3Connection: a socket that takes one of them and says what the test says.
class FakeI3 {
public:
    FakeI3()
    {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::copy(m_path.begin(), m_path.end(), static_cast<char *>(address.sun_path));
        EXPECT_EQ(bind(m_listener, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(m_listener, 1), 0);
    }
    ~FakeI3()
    {
        close(m_listener);
        leave();
    }
    Q_DISABLE_COPY_MOVE(FakeI3)

    const QByteArray &path() const { return m_path; }
    void meet()
    {
        m_peer = accept(m_listener, nullptr, nullptr);
        ASSERT_GE(m_peer, 0);
    }
    void leave()
    {
        if (m_peer >= 0)
            close(std::exchange(m_peer, -1));
    }
    /// Empty where the connection has ended.
    QByteArray heard() const
    {
        std::array<char, 200> part{};
        const ssize_t size = recv(m_peer, part.data(), part.size(), MSG_DONTWAIT);
        return size < 0 ? QByteArray("nothing yet") : QByteArray(part.data(), size);
    }
    void say(const QByteArray &bytes) const
    {
        EXPECT_EQ(write(m_peer, bytes.constData(), static_cast<size_t>(bytes.size())), bytes.size());
    }

private:
    QTemporaryDir m_folder;
    QByteArray m_path = m_folder.filePath(QStringLiteral("socket")).toUtf8();
    int m_listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int m_peer = -1;
};

} // namespace glimmet
