#include "platform/ConfigFolder.h"

#include "tests/support/Printing.h"

#include <QDir>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// The folder while the environment says `chosen`; null: it says nothing.
QString folderWith(const QByteArray &chosen)
{
    const QByteArray before = qgetenv("XDG_CONFIG_HOME");
    const auto set = [](const QByteArray &value) {
        value.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", value);
    };
    set(chosen);
    const QString folder = configFolder();
    set(before);
    return folder;
}

TEST(ConfigFolder, isWhatTheEnvironmentSays)
{
    EXPECT_EQ(folderWith("/somewhere/config"), u"/somewhere/config"_s);
    EXPECT_EQ(folderWith("/somewhere/config/"), u"/somewhere/config"_s);
    EXPECT_EQ(folderWith("/mit Blänken"), u"/mit Blänken"_s);
}

TEST(ConfigFolder, isTheUsualOneWhereItSaysNothingOrARelativePath)
{
    for (const QByteArray &chosen : { QByteArray(), QByteArray(""), QByteArray("config"),
             QByteArray("./config"), QByteArray("../config"), QByteArray("~/config") })
        EXPECT_EQ(folderWith(chosen), QDir::homePath() + u"/.config"_s) << chosen.toStdString();
}

} // namespace
} // namespace glimmet
