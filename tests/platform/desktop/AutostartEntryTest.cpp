#include "platform/desktop/AutostartEntry.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The status of an entry where exactly these programs are there.
LoginItemStatus status(const QByteArray &lines, const QStringList &programs = { u"/opt/glimmet"_s })
{
    return statusOfAutostartEntry("[Desktop Entry]\nType=Application\nName=glimmet\n" + lines,
        [&](const QString &program) { return programs.contains(program); });
}

LoginItemStatus statusOfOwnEntry(const QString &executable)
{
    return statusOfAutostartEntry(
        autostartEntry(executable), [&](const QString &program) { return program == executable; });
}

TEST(AutostartEntry, saysWhatToStartAndHow)
{
    EXPECT_EQ(autostartEntry(u"/opt/glimmet"_s).toStdString(), R"([Desktop Entry]
Type=Application
Name=glimmet
Exec="/opt/glimmet"
TryExec=/opt/glimmet
Icon=me.kerno.glimmet
Terminal=false
X-GNOME-Autostart-enabled=true
)");
}

TEST(AutostartEntry, isEnabledWhereItsProgramIsThere)
{
    EXPECT_EQ(status("Exec=/opt/glimmet\nTryExec=/opt/glimmet\n"), LoginItemStatus::Enabled);
    EXPECT_EQ(status("Exec=\"/opt/glimmet\" --quiet %u\n"), LoginItemStatus::Enabled);
    EXPECT_EQ(status("Exec=glimmet\n", { u"glimmet"_s }), LoginItemStatus::Enabled);
    EXPECT_EQ(status("Exec=/opt/glimmet\nX-GNOME-Autostart-enabled=true\nHidden=false\n"),
        LoginItemStatus::Enabled);
}

TEST(AutostartEntry, isReadBackWhateverThePathIsMadeOf)
{
    for (const QString &path :
        { u"/opt/glimmet"_s, u"/home/a b/glimmet"_s, u"/50%u/glimmet"_s, u"/a\"b`c$d/g"_s,
            u"/back\\slash/g"_s, u"/ünï cödé/✦"_s, u"/semi;colon/#hash/g"_s, u"/it's/g"_s })
        EXPECT_EQ(statusOfOwnEntry(path), LoginItemStatus::Enabled) << path.toStdString();
}

TEST(AutostartEntry, requiresApprovalOnceTheUserDisabledIt)
{
    EXPECT_EQ(status("Exec=/opt/glimmet\nHidden=true\n"), LoginItemStatus::RequiresApproval);
    EXPECT_EQ(
        status("Exec=/opt/glimmet\nX-GNOME-Autostart-enabled=false\n"), LoginItemStatus::RequiresApproval);
    EXPECT_EQ(status("Exec=/gone\nHidden=true\n"), LoginItemStatus::RequiresApproval);
    EXPECT_EQ(status("Hidden=true\n"), LoginItemStatus::RequiresApproval);
}

TEST(AutostartEntry, isNotFoundWhereItsProgramMoved)
{
    EXPECT_EQ(status("Exec=/gone\n"), LoginItemStatus::NotFound);
    EXPECT_EQ(status("Exec=/opt/glimmet\nTryExec=/gone\n"), LoginItemStatus::NotFound);
    EXPECT_EQ(status("Exec=/gone\nTryExec=/opt/glimmet\n"), LoginItemStatus::NotFound);
}

TEST(AutostartEntry, isNotFoundWhereItCannotBeRead)
{
    EXPECT_EQ(status("Exec=\"/opt/glimmet\n"), LoginItemStatus::NotFound);
    EXPECT_EQ(status("Exec=\n"), LoginItemStatus::NotFound);
    EXPECT_EQ(status(""), LoginItemStatus::NotFound);
    const auto anything = [](const QString &) { return true; };
    EXPECT_EQ(statusOfAutostartEntry("", anything), LoginItemStatus::NotFound);
    EXPECT_EQ(statusOfAutostartEntry("\x7f"
                                     "ELF\0\1\2",
                  anything),
        LoginItemStatus::NotFound);
    EXPECT_EQ(
        statusOfAutostartEntry("[Desktop Entry]\nType=Link\nExec=a\n", anything), LoginItemStatus::NotFound);
    EXPECT_EQ(statusOfAutostartEntry("Type=Application\nExec=a\n", anything), LoginItemStatus::NotFound);
}

} // namespace
} // namespace glimmet
