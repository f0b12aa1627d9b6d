#include "platform/desktop/XDisplay.h"

#include <QScopeGuard>
#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

XDisplay lookAt(const QByteArray &name, std::chrono::milliseconds patience)
{
    const QByteArray before = qgetenv("DISPLAY");
    const auto restore = qScopeGuard([&before] { qputenv("DISPLAY", before); });
    qputenv("DISPLAY", name);
    return lookAtDisplay(patience).display;
}

TEST(XDisplay, isUnsetWhereItHasNoName)
{
    EXPECT_EQ(lookAt("", 10s), XDisplay::Unset);
}

/// The display that a server at this port is.
QByteArray displayAt(quint16 port)
{
    constexpr int firstDisplay = 6000;
    return "127.0.0.1:" + QByteArray::number(port - firstDisplay);
}

TEST(XDisplay, cannotBeReachedWhereNobodyListens)
{
    // The port of this display is above those that the system gives to others.
    for (const char *name : { ":59000", "127.0.0.1:59000", "no display" })
        EXPECT_EQ(lookAt(name, 10s), XDisplay::Unreachable) << name;
}

TEST(XDisplay, cannotBeReachedWhereTheServerHangsUp)
{
    std::promise<quint16> port;
    std::thread server([&port] {
        QTcpServer listener;
        listener.listen(QHostAddress::LocalHost);
        port.set_value(listener.serverPort());
        if (listener.waitForNewConnection(10'000))
            listener.nextPendingConnection()->abort();
    });
    const auto join = qScopeGuard([&server] { server.join(); });

    EXPECT_EQ(lookAt(displayAt(port.get_future().get()), 10s), XDisplay::Unreachable);
}

TEST(XDisplay, isSilentWhereTheConnectionIsTakenAndNothingSaid)
{
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));

    EXPECT_EQ(lookAt(displayAt(server.serverPort()), 50ms), XDisplay::Silent);
}

TEST(XDisplayPlatform, isX11WhateverTheSessionWishes)
{
    for (const char *wanted :
        { "", "xcb", "wayland", "wayland;xcb", "xcb;wayland", "offscreen", "eglfs:x", "nonsense" })
        EXPECT_EQ(platformFor(wanted), "xcb") << wanted;
}

TEST(XDisplayPlatform, keepsTheUsersParameters)
{
    EXPECT_EQ(platformFor("xcb:no_xinput2"), "xcb:no_xinput2");
    EXPECT_EQ(platformFor("wayland:a;xcb:b:c;xcb:d"), "xcb:b:c");
}

} // namespace
} // namespace glimmet
