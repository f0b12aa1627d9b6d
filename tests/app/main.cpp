#include <QGuiApplication>

#include <gmock/gmock.h>

int main(int argc, char *argv[])
{
    // Tests of what is on a screen name its platform, and are given a screen of their own.
    if (argc < 2 || qstrcmp(argv[1], "-platform") != 0) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qunsetenv("DISPLAY");
    }
    // Nothing of a desktop that happens to be there takes part.
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qunsetenv("XDG_RUNTIME_DIR");
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    // The module is loaded by the program of its own version only.
    QGuiApplication::setApplicationVersion(QStringLiteral(GLIMMET_VERSION));
    return RUN_ALL_TESTS();
}
