#include "ui/panel/PanelHost.h"
#include "tests/support/MemoryLoginItem.h"
#include "tests/support/MemoryShellExtension.h"

#include <gtest/gtest.h>

#include <memory>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

class PanelHostTest : public testing::Test {
protected:
    MemoryLoginItem item;
    QStringList reported;
    PanelHost host{ u"1.2"_s, { item, [] {}, [this](const QString &line) { reported.append(line); } } };
};

TEST_F(PanelHostTest, launchesAtLoginOnlyWhereTheSystemSaysSo)
{
    for (const auto &[status, launches] :
        { std::pair(LoginItemStatus::Enabled, true), std::pair(LoginItemStatus::NotRegistered, false),
            std::pair(LoginItemStatus::RequiresApproval, false),
            std::pair(LoginItemStatus::NotFound, false) }) {
        item.current = status;
        EXPECT_EQ(host.launchesAtLogin(), launches);
    }
}

TEST_F(PanelHostTest, registersAndUnregisters)
{
    host.setLaunchesAtLogin(true);
    host.setLaunchesAtLogin(false);

    EXPECT_EQ(item.asked, (QStringList{ u"register"_s, u"unregister"_s }));
    EXPECT_TRUE(reported.isEmpty());
}

TEST_F(PanelHostTest, registersAgainWhatTheUserDisabledElsewhere)
{
    item.current = LoginItemStatus::RequiresApproval;

    host.setLaunchesAtLogin(true);

    EXPECT_EQ(item.asked, QStringList{ u"register"_s });
}

TEST_F(PanelHostTest, reportsAFailureInOneLine)
{
    item.failure = u"cannot write /home/a: No space left on device"_s;

    host.setLaunchesAtLogin(true);

    EXPECT_EQ(reported, QStringList{ u"Launch error: cannot write /home/a: No space left on device"_s });
}

TEST_F(PanelHostTest, offersTheTopBarOnlyWhereTheDesktopDoes)
{
    MemoryShellExtension extension;
    const PanelHost elsewhere(u"1.2"_s, { item, [] {}, [](const QString &) {} });
    const PanelHost inShell(u"1.2"_s, { item, [] {}, [](const QString &) {}, &extension });

    EXPECT_FALSE(elsewhere.offersTopBar());
    EXPECT_FALSE(inShell.offersTopBar());
    extension.offered = true;
    EXPECT_TRUE(inShell.offersTopBar());
}

TEST_F(PanelHostTest, takesNoAnswerOfTheShellThatComesWhenThePanelIsGone)
{
    /// Answers when a test says so.
    struct SlowExtension final : ShellExtension {
        bool isOffered() const override { return true; }
        void look(const Found &asker) override { found = asker; }
        void setEnabled(bool, const Completion &asker) override { completion = asker; }
        Found found;
        Completion completion;
    } extension;
    auto inShell = std::make_unique<PanelHost>(u"1.2"_s,
        PanelServices{ item, [] {}, [this](const QString &line) { reported.append(line); }, &extension });
    inShell->lookAtTopBar();
    inShell->setShownInTopBar(true);
    EXPECT_TRUE(inShell->isShownInTopBar());

    inShell.reset();
    extension.found({ true, false });
    extension.completion(u"too late"_s);

    EXPECT_EQ(reported, QStringList{ u"Top bar error: too late"_s });
}

} // namespace
} // namespace glimmet
