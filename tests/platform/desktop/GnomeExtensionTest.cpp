#include "platform/desktop/GnomeExtension.h"
#include "platform/bus/SessionBus.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"
#include "tests/support/PrivateBus.h"

#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

const QString uuid = u"glimmet@kerno.me"_s;
const QString shellPath = u"/org/gnome/Shell"_s;

/// A shell that knows the extension, or does not yet.
class Shell final : public QDBusVirtualObject {
public:
    explicit Shell(QDBusConnection connection)
        : m_connection(std::move(connection))
    {
        m_connection.registerVirtualObject(shellPath, this);
        m_connection.registerService(u"org.gnome.Shell"_s);
    }
    ~Shell() override { leave(m_connection.name(), shellPath); }
    Q_DISABLE_COPY_MOVE(Shell)

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const bool isKnown = state != 0 && message.arguments().value(0) == uuid;
        if (message.member() == u"GetExtensionInfo") {
            const QVariantMap about{ { u"uuid"_s, uuid }, { u"state"_s, state } };
            return connection.send(message.createReply(QVariant(isKnown ? about : QVariantMap())));
        }
        asked.append(message.member());
        return connection.send(message.createReply(isKnown));
    }

    double state = 0; ///< as the shell counts; 0: it does not know the extension
    QStringList asked;

private:
    QDBusConnection m_connection;
};

/// GNOME's settings tool: each key is a file in a folder.
class SettingsTool {
public:
    SettingsTool()
    {
        QFile tool(m_folder.filePath(u"gsettings"_s));
        if (!tool.open(QIODevice::WriteOnly))
            return;
        tool.write("#!/bin/sh\n"
                   "cd \"${0%/*}\" || exit 1\n"
                   "case $1 in\n"
                   "get) /bin/cat \"$2.$3\" ;;\n"
                   "set) printf '%s\\n' \"$4\" >\"$2.$3\" ;;\n"
                   "esac\n");
        tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        qputenv("PATH", m_folder.path().toUtf8());
        write(u"enabled-extensions"_s, "@as []\n");
        write(u"disabled-extensions"_s, "@as []\n");
    }
    ~SettingsTool() { qputenv("PATH", m_path); }
    Q_DISABLE_COPY_MOVE(SettingsTool)

    void write(const QString &key, const QByteArray &value) const
    {
        QFile file(fileOf(key));
        if (file.open(QIODevice::WriteOnly))
            file.write(value);
    }
    QStringList list(const QString &key) const
    {
        QFile file(fileOf(key));
        return file.open(QIODevice::ReadOnly)
            ? listOfGnome(file.readAll()).value_or(QStringList{ u"no list"_s })
            : QStringList();
    }
    void refuseToWrite() const
    {
        for (const QString &key : { u"enabled-extensions"_s, u"disabled-extensions"_s }) {
            QFile::remove(fileOf(key));
            QDir().mkdir(fileOf(key));
        }
    }

private:
    QString fileOf(const QString &key) const { return m_folder.filePath(u"org.gnome.shell."_s + key); }

    QTemporaryDir m_folder;
    const QByteArray m_path = qgetenv("PATH");
};

class GnomeExtensionTest : public testing::Test {
protected:
    GnomeExtensionTest() { bus.open(); }

    ShellExtensionState look()
    {
        std::optional<ShellExtensionState> state;
        extension.look([&](const ShellExtensionState &found) { state = found; });
        waitFor([&] { return state.has_value(); });
        return state.value_or(ShellExtensionState());
    }
    /// What it says of the outcome: "well", or the failure.
    QString setEnabled(bool isEnabled)
    {
        QString outcome;
        extension.setEnabled(
            isEnabled, [&](const std::optional<QString> &failure) { outcome = failure.value_or(u"well"_s); });
        waitFor([&] { return !outcome.isEmpty(); });
        return outcome;
    }

    PrivateBus daemon;
    ManualClock clock;
    ManualTimers timers{ clock };
    SessionBus bus{ timers };
    GnomeExtension extension{ bus, uuid };
    SettingsTool settings;
};

TEST_F(GnomeExtensionTest, isEnabledWhereTheShellHasItRunning)
{
    Shell shell(daemon.peer(u"shell"_s));
    for (const auto &[state, isEnabled] : { std::pair(1., true), std::pair(8., true), std::pair(2., false),
             std::pair(3., false), std::pair(6., false) }) {
        shell.state = state;
        EXPECT_EQ(look(), (ShellExtensionState{ isEnabled, true })) << state;
    }
}

TEST_F(GnomeExtensionTest, asksTheShellThatKnowsIt)
{
    Shell shell(daemon.peer(u"shell"_s));
    shell.state = 2;

    EXPECT_EQ(setEnabled(true), u"well"_s);
    EXPECT_EQ(setEnabled(false), u"well"_s);

    EXPECT_EQ(shell.asked, (QStringList{ u"EnableExtension"_s, u"DisableExtension"_s }));
    EXPECT_EQ(settings.list(u"enabled-extensions"_s), QStringList());
}

TEST_F(GnomeExtensionTest, isWrittenToTheSettingsOfAShellThatDoesNotKnowItYet)
{
    const Shell shell(daemon.peer(u"shell"_s));
    settings.write(u"enabled-extensions"_s, "['one@other']\n");
    settings.write(u"disabled-extensions"_s, "['glimmet@kerno.me', 'two@other']\n");
    EXPECT_EQ(look(), (ShellExtensionState{ false, false }));

    EXPECT_EQ(setEnabled(true), u"well"_s);

    EXPECT_EQ(settings.list(u"enabled-extensions"_s), (QStringList{ u"one@other"_s, uuid }));
    EXPECT_EQ(settings.list(u"disabled-extensions"_s), QStringList{ u"two@other"_s });
    EXPECT_EQ(look(), (ShellExtensionState{ true, false }));
}

TEST_F(GnomeExtensionTest, isTakenOutOfTheSettingsAgain)
{
    const Shell shell(daemon.peer(u"shell"_s));
    settings.write(u"enabled-extensions"_s, "['glimmet@kerno.me']\n");

    EXPECT_EQ(setEnabled(false), u"well"_s);

    EXPECT_EQ(settings.list(u"enabled-extensions"_s), QStringList());
    EXPECT_EQ(look(), (ShellExtensionState{ false, false }));
}

TEST_F(GnomeExtensionTest, isWrittenToTheSettingsWhereNoShellRuns)
{
    EXPECT_EQ(setEnabled(true), u"well"_s);

    EXPECT_EQ(look(), (ShellExtensionState{ true, false }));
}

TEST_F(GnomeExtensionTest, tellsWhySettingsThatCannotBeReadStayAsTheyAre)
{
    settings.write(u"enabled-extensions"_s, "what is this\n");

    EXPECT_EQ(setEnabled(true), u"GNOME's settings cannot be read"_s);

    EXPECT_EQ(settings.list(u"enabled-extensions"_s), QStringList{ u"no list"_s });
}

TEST_F(GnomeExtensionTest, isNotEnabledWhereThereIsNoToolForTheSettings)
{
    qputenv("PATH", "/nowhere");

    EXPECT_EQ(look(), (ShellExtensionState{ false, false }));
    EXPECT_EQ(setEnabled(true), u"GNOME's settings cannot be read"_s);
}

TEST_F(GnomeExtensionTest, isOfferedInGnomeWhereItIsInstalled)
{
    const QTemporaryDir data;
    const QByteArray homeBefore = qgetenv("XDG_DATA_HOME");
    const QByteArray dirsBefore = qgetenv("XDG_DATA_DIRS");
    const QByteArray desktopBefore = qgetenv("XDG_CURRENT_DESKTOP");
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    qputenv("XDG_DATA_DIRS", "/nowhere");
    const QString folder = data.filePath(u"gnome-shell/extensions/"_s + uuid);

    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    EXPECT_FALSE(extension.isOffered());
    QDir().mkpath(folder);
    QFile about(folder + u"/metadata.json"_s);
    ASSERT_TRUE(about.open(QIODevice::WriteOnly));
    EXPECT_TRUE(extension.isOffered());
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
    EXPECT_FALSE(extension.isOffered());

    qputenv("XDG_DATA_HOME", homeBefore);
    qputenv("XDG_DATA_DIRS", dirsBefore);
    qputenv("XDG_CURRENT_DESKTOP", desktopBefore);
}

TEST(ListOfGnome, isReadAndWrittenAsTheToolDoes)
{
    const QStringList list{ u"a@b"_s, u"it's \"x\""_s, u"ä"_s };

    EXPECT_EQ(listOfGnome(gnomeText(list).toUtf8()), list);
    EXPECT_EQ(gnomeText({}), u"@as []"_s);
    EXPECT_EQ(listOfGnome("@as []\n"), QStringList());
    EXPECT_EQ(listOfGnome("['a', \"b\"]\n"), (QStringList{ u"a"_s, u"b"_s }));
    EXPECT_EQ(listOfGnome("5"), std::nullopt);
    EXPECT_EQ(listOfGnome(""), std::nullopt);
}

} // namespace
} // namespace glimmet
