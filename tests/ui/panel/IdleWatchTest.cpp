#include "ui/panel/IdleWatch.h"

#include <QSignalSpy>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace std::chrono_literals;

TEST(IdleWatch, isIdleAfterAWhileWithoutUse)
{
    QWindow window;
    IdleWatch watch(window, 20ms);
    const QSignalSpy changes(&watch, &IdleWatch::changed);
    EXPECT_FALSE(watch.isIdle());

    EXPECT_TRUE(QTest::qWaitFor([&] { return watch.isIdle(); }));
    EXPECT_EQ(changes.count(), 1);
}

TEST(IdleWatch, isNotIdleAnyLongerOnceTheWindowIsUsed)
{
    const std::array<QEvent::Type, 4> uses{ QEvent::MouseMove, QEvent::KeyPress, QEvent::Wheel,
        QEvent::TouchUpdate };
    for (const QEvent::Type use : uses) {
        QWindow window;
        IdleWatch watch(window, 20ms);
        ASSERT_TRUE(QTest::qWaitFor([&] { return watch.isIdle(); }));
        const QSignalSpy changes(&watch, &IdleWatch::changed);

        QEvent event(use);
        EXPECT_FALSE(watch.eventFilter(&window, &event));
        EXPECT_FALSE(watch.isIdle()) << use;
        EXPECT_EQ(changes.count(), 1);
        EXPECT_TRUE(QTest::qWaitFor([&] { return watch.isIdle(); }));
    }
}

TEST(IdleWatch, takesNothingElseForUse)
{
    QWindow window;
    IdleWatch watch(window, 20ms);
    ASSERT_TRUE(QTest::qWaitFor([&] { return watch.isIdle(); }));

    for (const QEvent::Type type : { QEvent::UpdateRequest, QEvent::Timer, QEvent::Leave, QEvent::Expose }) {
        QEvent event(type);
        watch.eventFilter(&window, &event);
    }

    EXPECT_TRUE(watch.isIdle());
}

} // namespace
} // namespace glimmet
