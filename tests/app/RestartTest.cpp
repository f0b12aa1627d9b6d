#include "app/Restart.h"
#include "tests/support/Printing.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

/// This test's own program is what starts again: listing a test that does not exist, it ends at once.
TEST(Restart, isWantedOnlyOnceItWasAskedFor)
{
    Restart restart(0, nullptr);
    EXPECT_FALSE(restart.isWanted());

    restart.want();

    EXPECT_TRUE(restart.isWanted());
}

TEST(Restart, takesTheProcessOverWithTheSameArguments)
{
    const QTemporaryDir folder;
    const QByteArray said = QFile::encodeName(folder.filePath(u"said"_s));
    QByteArrayList arguments{ "glimmet", "--gtest_list_tests", "--gtest_filter=Restart.isWanted*" };
    char *pointers[] = { arguments[0].data(), arguments[1].data(), arguments[2].data() };
    const Restart restart(3, pointers);

    const pid_t child = fork();
    if (child == 0) {
        if (freopen(said.constData(), "w", stdout) != nullptr)
            restart.now();
        _exit(77);
    }
    int status = -1;
    waitpid(child, &status, 0);

    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    QFile file(QFile::decodeName(said));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray list = file.readAll();
    EXPECT_TRUE(list.contains("isWantedOnlyOnceItWasAskedFor")) << list.toStdString();
    EXPECT_FALSE(list.contains("takesTheProcessOver")) << list.toStdString();
}

} // namespace
} // namespace glimmet
