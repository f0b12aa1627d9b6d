#include "ui/updates/UpdateWindowModel.h"
#include "tests/support/Printing.h"

#include <QFile>

#include <gmock/gmock.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

UpdateState state(UpdatePhase phase)
{
    return { phase, u"1.0"_s, u"1.1"_s };
}

TEST(UpdateWords, areNoneWhereThereIsNothingToShow)
{
    EXPECT_EQ(updateWords({}), UpdateWords());
}

TEST(UpdateWords, tellBothVersionsOfAnUpdate)
{
    const UpdateWords words = updateWords(state(UpdatePhase::Found));

    EXPECT_EQ(words.heading, u"glimmet 1.1 is available"_s);
    EXPECT_EQ(words.message, u"You have 1.0. Would you like to install the newer version now?"_s);
    EXPECT_EQ(words.defaultButton, u"Install"_s);
    EXPECT_EQ(words.otherButton, u"Later"_s);
}

TEST(UpdateWords, tellTheVersionThatIsUpToDate)
{
    EXPECT_EQ(
        updateWords(state(UpdatePhase::UpToDate)).message, u"glimmet 1.0 is the newest version available."_s);
}

TEST(UpdateWords, offerToRestartWhenDone)
{
    const UpdateWords words = updateWords(state(UpdatePhase::Done));

    EXPECT_EQ(words.heading, u"glimmet 1.1 is installed"_s);
    EXPECT_EQ(words.defaultButton, u"Restart"_s);
}

TEST(UpdateWords, tellAFailedCheckFromAFailedInstallation)
{
    UpdateState failed = state(UpdatePhase::Failed);
    failed.failure.words = u"There is no network."_s;
    EXPECT_EQ(updateWords(failed).heading, u"glimmet 1.1 was not installed"_s);

    failed.newVersion.clear();
    EXPECT_EQ(updateWords(failed).heading, u"Could not check for updates"_s);
    EXPECT_EQ(updateWords(failed).message, u"There is no network."_s);
}

TEST(UpdateWords, sayWhereUpdatesComeFrom)
{
    EXPECT_TRUE(updateWords({ .phase = UpdatePhase::NotPackaged }).message.contains(u"no package installed"));
}

TEST(UpdateWords, haveASymbolThatExistsForEveryState)
{
    for (int phase = 1; phase <= static_cast<int>(UpdatePhase::NotPackaged); ++phase) {
        const QString symbol = updateWords(state(static_cast<UpdatePhase>(phase))).symbol;

        EXPECT_TRUE(QFile::exists(u":/qt-project.org/imports/Glimmet/symbols/%1.svg"_s.arg(symbol)))
            << symbol.toStdString();
    }
}

TEST(UpdateWindowModel, showsTheChangesOnlyOfAnUpdateThatIsOffered)
{
    UpdateWindowModel model;
    UpdateState found = state(UpdatePhase::Found);
    found.changes = u"Faster"_s;
    model.setState(found);
    EXPECT_EQ(model.changes(), u"Faster"_s);

    found.phase = UpdatePhase::Installing;
    model.setState(found);
    EXPECT_EQ(model.changes(), QString());
}

TEST(UpdateWindowModel, tellsTheProgressAsAPart)
{
    UpdateWindowModel model;
    UpdateState installing = state(UpdatePhase::Installing);
    model.setState(installing);
    EXPECT_EQ(model.progress(), -1);

    installing.percentage = 40;
    model.setState(installing);
    EXPECT_EQ(model.progress(), 0.4);
}

} // namespace
} // namespace glimmet
