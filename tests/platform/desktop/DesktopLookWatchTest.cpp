#include "platform/desktop/DesktopLookWatch.h"
#include "tests/support/PrivateBus.h"

#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
const QString contrast = QStringLiteral("contrast");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString animations = QStringLiteral("enable-animations");

/// The desktop's settings portal. It knows the scheme, and what it was told of.
class Portal final : public QDBusVirtualObject {
public:
    Portal(QDBusConnection connection, uint scheme)
        : m_connection(std::move(connection))
        , m_settings{ { { appearance, colorScheme }, scheme } }
    {
        m_connection.registerVirtualObject(portalPath, this);
        m_connection.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const auto setting = m_settings.constFind(
            { message.arguments().value(0).toString(), message.arguments().value(1).toString() });
        if (setting == m_settings.constEnd())
            return connection.send(message.createErrorReply(
                QStringLiteral("org.freedesktop.portal.Error.NotFound"), QStringLiteral("unknown")));
        // Read puts its answer into a variant of its own.
        const QDBusVariant inner(*setting);
        return connection.send(
            message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    }
    void change(const QString &space, const QString &key, const QVariant &value)
    {
        m_settings.insert({ space, key }, value);
        QDBusMessage signal =
            QDBusMessage::createSignal(portalPath, settingsInterface, QStringLiteral("SettingChanged"));
        signal << space << key << QVariant::fromValue(QDBusVariant(value));
        m_connection.send(signal);
    }

private:
    QDBusConnection m_connection;
    DesktopSettings m_settings;
};

/// GNOME's settings, dark and of high contrast, as its own tool tells them: one schema at a time.
class GnomeWithoutPortal {
public:
    GnomeWithoutPortal()
    {
        QFile tool(m_folder.filePath(QStringLiteral("gsettings")));
        if (!tool.open(QIODevice::WriteOnly))
            return;
        tool.write("#!/bin/sh\n"
                   "case $2 in\n"
                   "org.gnome.desktop.interface) echo \"$2 color-scheme 'prefer-dark'\" ;;\n"
                   "org.gnome.desktop.a11y.interface) echo \"$2 high-contrast true\" ;;\n"
                   "esac\n");
        tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8());
        qputenv("XDG_CURRENT_DESKTOP", "GNOME");
    }
    ~GnomeWithoutPortal()
    {
        qputenv("PATH", m_path);
        qputenv("XDG_CURRENT_DESKTOP", m_desktop);
    }
    Q_DISABLE_COPY_MOVE(GnomeWithoutPortal)

private:
    QTemporaryDir m_folder;
    const QByteArray m_path = qgetenv("PATH");
    const QByteArray m_desktop = qgetenv("XDG_CURRENT_DESKTOP");
};

class DesktopLookWatchTest : public testing::Test {
protected:
    DesktopLookWatchTest()
        : own(daemon.peer(QStringLiteral("own")))
        , desktop(daemon.peer(QStringLiteral("desktop")))
    {
    }
    ~DesktopLookWatchTest() override
    {
        for (const char *name : { "own", "desktop" })
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }

    PrivateBus daemon;
    QDBusConnection own;
    QDBusConnection desktop;
};

TEST_F(DesktopLookWatchTest, takesThePortalsWordAtTheStart)
{
    const Portal portal(desktop, 1);
    DesktopLookWatch watch;

    watch.follow(own);

    EXPECT_TRUE(waitFor([&] { return watch.look().scheme == ColorScheme::Dark; }));
}

TEST_F(DesktopLookWatchTest, followsThePortalWhileItRuns)
{
    Portal portal(desktop, 2);
    DesktopLookWatch watch;
    QSignalSpy changed(&watch, &DesktopLookWatch::changed);
    watch.follow(own);

    portal.change(appearance, colorScheme, 1U);
    ASSERT_TRUE(waitFor([&] { return watch.look().scheme == ColorScheme::Dark; }));
    portal.change(appearance, QStringLiteral("accent-color"), 1U);
    portal.change(gnome, colorScheme, QStringLiteral("prefer-dark"));
    portal.change(appearance, colorScheme, 2U);

    EXPECT_TRUE(waitFor([&] { return watch.look().scheme == ColorScheme::Light; }));
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(DesktopLookWatchTest, takesThePortalsWordForLessMotionAtTheStart)
{
    Portal portal(desktop, 0);
    portal.change(gnome, animations, false);
    DesktopLookWatch watch;

    watch.follow(own);

    EXPECT_TRUE(waitFor([&] { return watch.look().reducesMotion; }));
}

TEST_F(DesktopLookWatchTest, followsAWishForLessMotionWhileItRuns)
{
    Portal portal(desktop, 2);
    DesktopLookWatch watch;
    QSignalSpy changed(&watch, &DesktopLookWatch::changed);
    watch.follow(own);

    portal.change(gnome, animations, false);
    ASSERT_TRUE(waitFor([&] { return watch.look().reducesMotion; }));
    portal.change(gnome, animations, true);

    EXPECT_TRUE(waitFor([&] { return !watch.look().reducesMotion; }));
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(DesktopLookWatchTest, takesThePortalsWordForMoreContrastAtTheStart)
{
    Portal portal(desktop, 0);
    portal.change(QStringLiteral("org.gnome.desktop.a11y.interface"), QStringLiteral("high-contrast"), true);
    DesktopLookWatch watch;

    watch.follow(own);

    EXPECT_TRUE(waitFor([&] { return watch.look().wantsContrast; }));
}

TEST_F(DesktopLookWatchTest, followsAWishForMoreContrastWhileItRuns)
{
    Portal portal(desktop, 2);
    DesktopLookWatch watch;
    QSignalSpy changed(&watch, &DesktopLookWatch::changed);
    watch.follow(own);

    portal.change(appearance, contrast, 1U);
    ASSERT_TRUE(waitFor([&] { return watch.look().wantsContrast; }));
    portal.change(appearance, contrast, 0U);

    EXPECT_TRUE(waitFor([&] { return !watch.look().wantsContrast; }));
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(DesktopLookWatchTest, readsAllOfGnomesWishesWhereThereIsNoPortal)
{
    const GnomeWithoutPortal surroundings;
    DesktopLookWatch watch;

    watch.follow(own);

    EXPECT_TRUE(waitFor([&] { return watch.look() == DesktopLook{ ColorScheme::Dark, false, true }; }));
}

TEST_F(DesktopLookWatchTest, takesThePalettesLightnessWhereThePortalHasNoPreference)
{
    const QPalette before = QGuiApplication::palette();
    const Portal portal(desktop, 0);
    DesktopLookWatch watch;
    watch.follow(own);
    QSignalSpy changed(&watch, &DesktopLookWatch::changed);
    QPalette dark(
        Qt::white, Qt::darkGray, Qt::white, Qt::black, Qt::gray, Qt::white, Qt::white, Qt::black, Qt::black);

    QGuiApplication::setPalette(dark);

    EXPECT_TRUE(waitFor([&] { return changed.count() > 0; }));
    EXPECT_EQ(watch.look().scheme, ColorScheme::Dark);
    QGuiApplication::setPalette(before);
}

} // namespace
} // namespace glimmet
