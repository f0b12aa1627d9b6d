#include "ui/panel/PanelHost.h"
#include "tests/support/MemoryLoginItem.h"

#include <gtest/gtest.h>

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

} // namespace
} // namespace glimmet
