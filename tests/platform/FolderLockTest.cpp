#include "platform/FolderLock.h"

#include "tests/platform/ChildProcess.h"
#include "tests/platform/TestFolder.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(FolderLock, keepsAnotherProgramOutWhileItLives)
{
    const TestFolder folder;
    const FolderLock lock(folder.path());
    ASSERT_TRUE(lock.isHeld());

    ChildProcess other([&] { return FolderLock(folder.path(), 50ms).isHeld() ? 1 : 0; });

    EXPECT_EQ(other.wait(), 0);
}

TEST(FolderLock, isFreeAgainAtItsEnd)
{
    const TestFolder folder;
    EXPECT_TRUE(FolderLock(folder.path()).isHeld());
    EXPECT_TRUE(FolderLock(folder.path()).isHeld());
}

TEST(FolderLock, isFreeAgainAfterAKill)
{
    const TestFolder folder;
    Pipe ready;
    ChildProcess holder([&] {
        const FolderLock lock(folder.path());
        const bool isTold = write(ready.writer(), lock.isHeld() ? "h" : "n", 1) == 1;
        pause();
        return isTold ? 0 : 1;
    });
    char mark = 0;
    ASSERT_EQ(read(ready.reader(), &mark, 1), 1);
    ASSERT_EQ(mark, 'h');

    holder.killNow();

    EXPECT_TRUE(FolderLock(folder.path()).isHeld());
}

TEST(FolderLock, waitsForAnotherProgramToFinish)
{
    const TestFolder folder;
    Pipe ready;
    ChildProcess holder([&] {
        const FolderLock lock(folder.path());
        const bool isTold = write(ready.writer(), "h", 1) == 1;
        usleep(100'000);
        return isTold && lock.isHeld() ? 0 : 1;
    });
    char mark = 0;
    ASSERT_EQ(read(ready.reader(), &mark, 1), 1);

    EXPECT_TRUE(FolderLock(folder.path()).isHeld());
    EXPECT_EQ(holder.wait(), 0);
}

TEST(FolderLock, leavesNothingBehind)
{
    const TestFolder folder;
    {
        const FolderLock lock(folder.path());
        EXPECT_TRUE(lock.isHeld());
    }

    EXPECT_TRUE(entriesOf(folder.path()).isEmpty());
}

TEST(FolderLock, isNotHeldOnWhatIsNoFolder)
{
    const TestFolder folder;
    ASSERT_TRUE(putFile(folder.file(), "{}"));

    EXPECT_FALSE(FolderLock(folder.file()).isHeld());
    EXPECT_FALSE(FolderLock(folder.path() + u"/missing"_s).isHeld());
}

} // namespace
} // namespace glimmet
