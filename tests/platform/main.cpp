#include "tests/platform/PrivateMounts.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char **argv)
{
    // Before the first thread: only a process of one thread may enter a new user namespace.
    glimmet::enterPrivateMounts();
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
