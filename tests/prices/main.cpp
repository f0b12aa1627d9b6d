#include <QCoreApplication>

#include <gmock/gmock.h>

int main(int argc, char *argv[])
{
    testing::InitGoogleMock(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
