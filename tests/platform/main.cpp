#include "tests/platform/PrivateMounts.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    // Before the first thread: only a process of one thread may enter a new user namespace.
    glimmet::enterPrivateMounts();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Nothing of a desktop that happens to be there takes part.
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("XDG_RUNTIME_DIR");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
