#include "ui/controls/FlowLayout.h"

#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

namespace glimmet {

TEST(FlowLayout, followsAChildThatMovesAmongItsSiblings)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickWindow window;
    FlowLayout layout(window.contentItem());
    layout.setWidth(100);
    QQuickItem first(&layout);
    first.setSize({ 40, 20 });
    QQuickItem second(&layout);
    second.setSize({ 20, 20 });
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return second.x() == 40; }));

    second.stackBefore(&first);

    EXPECT_TRUE(QTest::qWaitFor([&] { return second.x() == 0 && first.x() == 20; }));
}

TEST(FlowLayout, survivesTheWindowThatShowedIt)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    FlowLayout layout;
    QQuickItem child(&layout);
    child.setSize({ 40, 20 });
    {
        QQuickWindow window;
        layout.setParentItem(window.contentItem());
        window.show();
        ASSERT_TRUE(QTest::qWaitFor([&] { return layout.isLaidOut(); }));
        layout.setParentItem(nullptr);
    }
    QQuickWindow other;
    layout.setParentItem(other.contentItem());
    other.show();

    child.setSize({ 40, 30 });

    EXPECT_TRUE(QTest::qWaitFor([&] { return layout.implicitHeight() == 30; }));
}

} // namespace glimmet
