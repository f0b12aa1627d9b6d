#include "platform/Process.h"

#include "tests/platform/ChildProcess.h"
#include "tests/platform/TestFolder.h"

#include <QDir>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <optional>
#include <sys/resource.h>

namespace glimmet {
namespace {

TEST(CoreDumps, haveALimitOfNothing)
{
    ChildProcess child([] {
        forbidCoreDumps();
        rlimit limit{};
        getrlimit(RLIMIT_CORE, &limit);
        return int(limit.rlim_cur);
    });

    EXPECT_EQ(child.wait(), 0);
}

TEST(CoreDumps, haveNoMemoryInThemWhereTheLimitDoesNotHold)
{
    ChildProcess child([] {
        forbidCoreDumps();
        return contentOf(QStringLiteral("/proc/self/coredump_filter")).trimmed().toInt(nullptr, 16);
    });

    EXPECT_EQ(child.wait(), 0);
}

/// Crashes in `folder` with a text in its memory that is nowhere else.
int crash(const QString &folder, bool isForbidden)
{
    if (isForbidden)
        forbidCoreDumps();
    const rlimit limit{ RLIM_INFINITY, RLIM_INFINITY };
    setrlimit(RLIMIT_CORE, &limit);
    QDir::setCurrent(folder);
    QByteArray marker("sk_live_");
    for (int i = 0; i < 10; ++i)
        marker.append(QByteArray::number(i * i));
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

/// Whether the crash leaves that text in a file; nothing where this system writes none there.
std::optional<bool> leavesKey(bool isForbidden)
{
    const TestFolder folder;
    ChildProcess child([&] { return crash(folder.path(), isForbidden); });
    child.wait();
    const QStringList dumps = QDir(folder.path()).entryList({ QStringLiteral("core*") }, QDir::Files);
    if (dumps.isEmpty())
        return std::nullopt;
    return contentOf(folder.path() + u'/' + dumps.first()).contains("sk_live_0149162536496481");
}

TEST(CoreDumps, leaveNoKeyAnywhereEvenWithTheLimitLifted)
{
    const auto usual = leavesKey(false);
    // Where dumps go to a program, no test of an ordinary user's can read them.
    if (!usual)
        GTEST_SKIP() << "crashes leave no file in the folder here";
    EXPECT_EQ(usual, true);

    EXPECT_EQ(leavesKey(true).value_or(false), false);
}

} // namespace
} // namespace glimmet
