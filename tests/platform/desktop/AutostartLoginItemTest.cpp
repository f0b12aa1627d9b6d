#include "platform/desktop/AutostartLoginItem.h"
#include "platform/desktop/AutostartEntry.h"
#include "tests/platform/TestFolder.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

class AutostartLoginItemTest : public testing::Test {
protected:
    AutostartLoginItemTest() { putProgram(u"glimmet"_s); }

    QString autostart() const { return folder.path() + u"/config/autostart"_s; }
    QString entry() const { return autostart() + u"/me.kerno.glimmet.desktop"_s; }
    QString program(const QString &name) const { return folder.path() + u'/' + name; }
    QString putProgram(const QString &name) const
    {
        const QString path = program(name);
        putFile(path, "#!/bin/sh\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
        return path;
    }
    void putEntry(const QByteArray &lines) const
    {
        QDir().mkpath(autostart());
        putFile(entry(), "[Desktop Entry]\nType=Application\nName=glimmet\n" + lines);
    }
    AutostartLoginItem item() const { return { autostart(), program(u"glimmet"_s) }; }

    std::optional<QString> failureOfRegistering()
    {
        std::optional<QString> failure = u"nothing was answered"_s;
        item().registerItem([&](const auto &answer) { failure = answer; });
        return failure;
    }
    std::optional<QString> failureOfUnregistering()
    {
        std::optional<QString> failure = u"nothing was answered"_s;
        item().unregisterItem([&](const auto &answer) { failure = answer; });
        return failure;
    }

    /// Whether the user's service manager would start the program at login.
    bool isStartedBySystemd() const
    {
        const QString units = folder.path() + u"/units"_s;
        QDir(units).removeRecursively();
        QDir().mkpath(units);
        QProcess generator;
        QProcessEnvironment environment;
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.path() + u"/config"_s);
        environment.insert(u"XDG_CONFIG_DIRS"_s, folder.path() + u"/none"_s);
        environment.insert(u"HOME"_s, folder.path());
        environment.insert(u"PATH"_s, u"/usr/bin:/bin"_s);
        generator.setProcessEnvironment(environment);
        generator.start(
            u"/usr/lib/systemd/user-generators/systemd-xdg-autostart-generator"_s, { units, units, units });
        EXPECT_TRUE(generator.waitForFinished() && generator.exitCode() == 0);
        return QDir(units + u"/xdg-desktop-autostart.target.wants"_s).count() > 2;
    }

    TestFolder folder;
};

TEST_F(AutostartLoginItemTest, isNotRegisteredAtFirst)
{
    EXPECT_EQ(item().status(), LoginItemStatus::NotRegistered);
    EXPECT_FALSE(isStartedBySystemd());
}

TEST_F(AutostartLoginItemTest, isEnabledOnceItIsRegistered)
{
    EXPECT_EQ(failureOfRegistering(), std::nullopt);

    EXPECT_EQ(item().status(), LoginItemStatus::Enabled);
    EXPECT_TRUE(isStartedBySystemd());
}

TEST_F(AutostartLoginItemTest, isGoneOnceItIsUnregistered)
{
    failureOfRegistering();

    EXPECT_EQ(failureOfUnregistering(), std::nullopt);

    EXPECT_EQ(item().status(), LoginItemStatus::NotRegistered);
    EXPECT_FALSE(QFile::exists(entry()));
    EXPECT_FALSE(isStartedBySystemd());
}

TEST_F(AutostartLoginItemTest, unregisteringWhatIsNotThereIsNoFailure)
{
    EXPECT_EQ(failureOfUnregistering(), std::nullopt);
}

TEST_F(AutostartLoginItemTest, requiresApprovalAndIsNotStartedOnceItIsHidden)
{
    putEntry("Exec=" + program(u"glimmet"_s).toUtf8() + "\nHidden=true\n");

    EXPECT_EQ(item().status(), LoginItemStatus::RequiresApproval);
    EXPECT_FALSE(isStartedBySystemd());
}

// systemd starts such an entry all the same; desktops do not.
TEST_F(AutostartLoginItemTest, requiresApprovalOnceItIsSwitchedOffInGnome)
{
    putEntry("Exec=" + program(u"glimmet"_s).toUtf8() + "\nX-GNOME-Autostart-enabled=false\n");

    EXPECT_EQ(item().status(), LoginItemStatus::RequiresApproval);
}

TEST_F(AutostartLoginItemTest, readingAnEntryThatTheUserDisabledChangesNothing)
{
    putEntry("Exec=/opt/glimmet\nHidden=true\n");
    const QByteArray before = contentOf(entry());

    item().status();

    EXPECT_EQ(contentOf(entry()), before);
}

TEST_F(AutostartLoginItemTest, isEnabledAgainByRegistering)
{
    putEntry("Exec=" + program(u"glimmet"_s).toUtf8() + "\nHidden=true\nX-GNOME-Autostart-enabled=false\n");

    EXPECT_EQ(failureOfRegistering(), std::nullopt);

    EXPECT_EQ(item().status(), LoginItemStatus::Enabled);
    EXPECT_TRUE(isStartedBySystemd());
}

TEST_F(AutostartLoginItemTest, isNotFoundWhereTheProgramMovedAndRegisteringWritesTheNewPath)
{
    failureOfRegistering();
    QFile::remove(program(u"glimmet"_s));
    EXPECT_EQ(item().status(), LoginItemStatus::NotFound);
    EXPECT_FALSE(isStartedBySystemd());

    AutostartLoginItem moved(autostart(), putProgram(u"moved here"_s));
    moved.registerItem([](const auto &failure) { EXPECT_EQ(failure, std::nullopt); });

    EXPECT_EQ(moved.status(), LoginItemStatus::Enabled);
    EXPECT_TRUE(isStartedBySystemd());
}

TEST_F(AutostartLoginItemTest, isNotFoundWhereTheEntryIsNone)
{
    QDir().mkpath(autostart());
    putFile(entry(),
        "\x7f"
        "ELF");
    EXPECT_EQ(item().status(), LoginItemStatus::NotFound);

    QFile::remove(entry());
    QDir().mkpath(entry());
    EXPECT_EQ(item().status(), LoginItemStatus::NotFound);
}

TEST_F(AutostartLoginItemTest, replacesALinkAndNotWhatItLeadsTo)
{
    const QString menuEntry = folder.path() + u"/menu.desktop"_s;
    QDir().mkpath(autostart());
    putFile(menuEntry, "[Desktop Entry]\nType=Application\nExec=/opt/glimmet\n");
    const QByteArray before = contentOf(menuEntry);

    for (const QString &end : { menuEntry, u"/nowhere/menu.desktop"_s }) {
        QFile::remove(entry());
        ASSERT_TRUE(QFile::link(end, entry()));
        ASSERT_EQ(item().status(), LoginItemStatus::NotFound);

        EXPECT_EQ(failureOfRegistering(), std::nullopt);
        EXPECT_EQ(item().status(), LoginItemStatus::Enabled);
    }
    EXPECT_EQ(contentOf(menuEntry), before);
}

TEST_F(AutostartLoginItemTest, saysWhyItCannotBeRegistered)
{
    putFile(folder.path() + u"/config"_s, "not a folder");

    const auto failure = failureOfRegistering();

    ASSERT_TRUE(failure.has_value());
    EXPECT_TRUE(failure->contains(autostart())) << failure->toStdString();
    EXPECT_TRUE(failure->contains(u"Not a directory"_s)) << failure->toStdString();
}

TEST_F(AutostartLoginItemTest, saysWhyItCannotBeUnregistered)
{
    QDir().mkpath(entry() + u"/full"_s);

    EXPECT_TRUE(failureOfUnregistering().has_value());
}

} // namespace
} // namespace glimmet
