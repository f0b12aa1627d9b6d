#include "platform/ColorSchemeWatch.h"
#include "tests/support/PrivateBus.h"

#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString settingsInterface = QStringLiteral("org.freedesktop.portal.Settings");

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

/// The desktop's settings portal.
class Portal final : public QDBusVirtualObject {
public:
    Portal(QDBusConnection connection, uint scheme)
        : m_connection(std::move(connection))
        , m_scheme(scheme)
    {
        m_connection.registerVirtualObject(portalPath, this);
        m_connection.registerService(QStringLiteral("org.freedesktop.portal.Desktop"));
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        // Read puts its answer into a variant of its own.
        const QDBusVariant inner(m_scheme);
        return connection.send(
            message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
    }
    void change(const QString &space, const QString &key, const QVariant &value)
    {
        if (space == appearance && key == colorScheme)
            m_scheme = value.toUInt();
        QDBusMessage signal =
            QDBusMessage::createSignal(portalPath, settingsInterface, QStringLiteral("SettingChanged"));
        signal << space << key << QVariant::fromValue(QDBusVariant(value));
        m_connection.send(signal);
    }

private:
    QDBusConnection m_connection;
    uint m_scheme;
};

class ColorSchemeWatchTest : public testing::Test {
protected:
    ColorSchemeWatchTest()
        : own(daemon.peer(QStringLiteral("own")))
        , desktop(daemon.peer(QStringLiteral("desktop")))
    {
    }
    ~ColorSchemeWatchTest() override
    {
        for (const char *name : { "own", "desktop" })
            QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
    }

    PrivateBus daemon;
    QDBusConnection own;
    QDBusConnection desktop;
};

TEST_F(ColorSchemeWatchTest, takesThePortalsWordAtTheStart)
{
    const Portal portal(desktop, 1);
    ColorSchemeWatch watch;

    watch.follow(own);

    EXPECT_TRUE(waitFor([&] { return watch.scheme() == ColorScheme::Dark; }));
}

TEST_F(ColorSchemeWatchTest, followsThePortalWhileItRuns)
{
    Portal portal(desktop, 2);
    ColorSchemeWatch watch;
    QSignalSpy changed(&watch, &ColorSchemeWatch::changed);
    watch.follow(own);

    portal.change(appearance, colorScheme, 1U);
    ASSERT_TRUE(waitFor([&] { return watch.scheme() == ColorScheme::Dark; }));
    portal.change(appearance, QStringLiteral("contrast"), 1U);
    portal.change(QStringLiteral("org.gnome.desktop.interface"), colorScheme, QStringLiteral("prefer-dark"));
    portal.change(appearance, colorScheme, 2U);

    EXPECT_TRUE(waitFor([&] { return watch.scheme() == ColorScheme::Light; }));
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(ColorSchemeWatchTest, takesThePalettesLightnessWhereThePortalHasNoPreference)
{
    const QPalette before = QGuiApplication::palette();
    const Portal portal(desktop, 0);
    ColorSchemeWatch watch;
    watch.follow(own);
    QSignalSpy changed(&watch, &ColorSchemeWatch::changed);
    QPalette dark(
        Qt::white, Qt::darkGray, Qt::white, Qt::black, Qt::gray, Qt::white, Qt::white, Qt::black, Qt::black);

    QGuiApplication::setPalette(dark);

    EXPECT_TRUE(waitFor([&] { return changed.count() > 0; }));
    EXPECT_EQ(watch.scheme(), ColorScheme::Dark);
    QGuiApplication::setPalette(before);
}

} // namespace
} // namespace glimmet
