#include "ui/controls/HeldKeyFilter.h"

#include <QKeyEvent>
#include <gtest/gtest.h>

namespace glimmet {
namespace {

class HeldKeyFilterTest : public testing::Test {
protected:
    /// Whether the event reaches the control.
    bool passes(QEvent::Type type, quint64 time, bool isMarked = false, quint32 scanCode = 36)
    {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, scanCode, 0, 0, QString(), isMarked);
        event.setTimestamp(time);
        return !filter.eventFilter(nullptr, &event);
    }

    HeldKeyFilter filter;
};

TEST_F(HeldKeyFilterTest, letsEveryStrokeThrough)
{
    for (quint64 time = 100; time < 500; time += 100) {
        EXPECT_TRUE(passes(QEvent::KeyPress, time));
        EXPECT_TRUE(passes(QEvent::KeyRelease, time + 50));
    }
}

TEST_F(HeldKeyFilterTest, keepsMarkedRepetitionsBack)
{
    EXPECT_TRUE(passes(QEvent::KeyPress, 100));
    EXPECT_FALSE(passes(QEvent::KeyRelease, 600, true));
    EXPECT_FALSE(passes(QEvent::KeyPress, 600, true));
    EXPECT_TRUE(passes(QEvent::KeyRelease, 610));
}

TEST_F(HeldKeyFilterTest, keepsRepetitionsBackThatOnlyTheirTimeTells)
{
    EXPECT_TRUE(passes(QEvent::KeyPress, 100));
    EXPECT_TRUE(passes(QEvent::KeyRelease, 600));
    for (quint64 time = 600; time < 700; time += 30) {
        EXPECT_FALSE(passes(QEvent::KeyPress, time));
        EXPECT_FALSE(passes(QEvent::KeyRelease, time + 30));
    }
    EXPECT_TRUE(passes(QEvent::KeyPress, 1000));
    EXPECT_TRUE(passes(QEvent::KeyRelease, 1050));
}

TEST_F(HeldKeyFilterTest, knowsARepetitionAlsoAtTheControlThatGotTheKeyboardMeanwhile)
{
    HeldKeyFilter next;
    EXPECT_TRUE(passes(QEvent::KeyPress, 100));
    EXPECT_TRUE(passes(QEvent::KeyRelease, 600));

    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, 36, 0, 0);
    repeated.setTimestamp(600);

    EXPECT_TRUE(next.eventFilter(nullptr, &repeated));
}

TEST_F(HeldKeyFilterTest, takesNoStrokeForARepetitionWhereTimesAreUnknown)
{
    for (int stroke = 0; stroke < 3; ++stroke) {
        EXPECT_TRUE(passes(QEvent::KeyPress, 0));
        EXPECT_TRUE(passes(QEvent::KeyRelease, 0));
        // What no keyboard sends may come as fast as the clock's smallest step.
        EXPECT_TRUE(passes(QEvent::KeyPress, 5, false, 0));
        EXPECT_TRUE(passes(QEvent::KeyRelease, 5, false, 0));
    }
}

TEST_F(HeldKeyFilterTest, leavesOtherKeysAlone)
{
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, QString(), true);

    EXPECT_FALSE(filter.eventFilter(nullptr, &event));
}

} // namespace
} // namespace glimmet
