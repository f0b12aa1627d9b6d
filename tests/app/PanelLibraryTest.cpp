#include "app/PanelLibrary.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(PanelLibrary, loadsTheModuleBesideTheProgram)
{
    PanelLibrary library;

    EXPECT_NE(library.module(), nullptr) << library.error().toStdString();

    EXPECT_FALSE(library.isReplaced());
    EXPECT_EQ(library.error(), QString());
}

TEST(PanelLibrary, refusesTheModuleOfAnotherVersionInWords)
{
    const QString version = QCoreApplication::applicationVersion();
    const auto restore = qScopeGuard([&] { QCoreApplication::setApplicationVersion(version); });
    QCoreApplication::setApplicationVersion(u"0.0.9"_s);
    PanelLibrary library;

    EXPECT_EQ(library.module(), nullptr);

    EXPECT_TRUE(library.isReplaced());
    EXPECT_EQ(library.error(), u"glimmet %1 is installed, but 0.0.9 is running"_s.arg(version));
}

TEST(PanelLibrary, looksAgainAfterARefusal)
{
    const QString version = QCoreApplication::applicationVersion();
    QCoreApplication::setApplicationVersion(u"0.0.9"_s);
    PanelLibrary library;
    ASSERT_EQ(library.module(), nullptr);

    QCoreApplication::setApplicationVersion(version);

    EXPECT_NE(library.module(), nullptr);
    EXPECT_FALSE(library.isReplaced());
}

} // namespace
} // namespace glimmet
