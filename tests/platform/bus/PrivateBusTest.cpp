#include "tests/support/PrivateBus.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString planted = u"me.kerno.glimmet.Planted"_s;

/// A machine with a service, as its session finds it.
class PrivateBusTest : public testing::Test {
protected:
    PrivateBusTest()
    {
        QDir().mkpath(services);
        QFile file(services + u"/planted.service"_s);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("[D-BUS Service]\nName=" + planted.toUtf8() + "\nExec=/bin/false\n");
        qputenv("XDG_DATA_DIRS", machine.path().toUtf8());
    }
    ~PrivateBusTest() override
    {
        QDBusConnection::disconnectFromBus(u"own"_s);
        if (before.isNull())
            qunsetenv("XDG_DATA_DIRS");
        else
            qputenv("XDG_DATA_DIRS", before);
    }

    static QString errorOfStarting(const PrivateBus &daemon)
    {
        return call(daemon.peer(u"own"_s), u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s,
            u"StartServiceByName"_s, { planted, 0U }, u"org.freedesktop.DBus"_s)
            .errorName();
    }

    QTemporaryDir machine;
    QString services = machine.filePath(u"dbus-1/services"_s);
    QByteArray before = qgetenv("XDG_DATA_DIRS");
};

TEST_F(PrivateBusTest, startsNoServiceOfTheMachine)
{
    const PrivateBus daemon;

    EXPECT_EQ(errorOfStarting(daemon), u"org.freedesktop.DBus.Error.ServiceUnknown"_s);
}

TEST_F(PrivateBusTest, startsTheServicesThatItIsGiven)
{
    const PrivateBus daemon(services);

    EXPECT_EQ(errorOfStarting(daemon), u"org.freedesktop.DBus.Error.Spawn.ChildExited"_s);
}

} // namespace
} // namespace glimmet
