#include "app/CompositionWatch.h"

#include <QSignalSpy>
#include <QWindow>

#include <gtest/gtest.h>

#include <memory>

namespace glimmet {
namespace {

/// A text field as far as its window's focus is concerned.
class Field : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool inputMethodComposing MEMBER m_isComposing NOTIFY inputMethodComposingChanged)

public:
    void compose(bool isComposing) { setProperty("inputMethodComposing", isComposing); }

signals:
    void inputMethodComposingChanged();

private:
    bool m_isComposing = false;
};

class FieldWindow : public QWindow {
public:
    QObject *focusObject() const override { return m_focused ? m_focused : QWindow::focusObject(); }
    void focus(QObject *object)
    {
        m_focused = object;
        emit focusObjectChanged(object);
    }

private:
    QObject *m_focused = nullptr;
};

class CompositionWatchTest : public testing::Test {
protected:
    FieldWindow window;
    Field field;
    CompositionWatch watch{ window };
    QSignalSpy ending{ &watch, &CompositionWatch::ending };
};

TEST_F(CompositionWatchTest, followsTheFieldThatHasTheKeyboard)
{
    window.focus(&field);
    EXPECT_FALSE(watch.isComposing());

    field.compose(true);
    EXPECT_TRUE(watch.isComposing());

    field.compose(false);
    EXPECT_FALSE(watch.isComposing());
    EXPECT_EQ(ending.size(), 1);
}

TEST_F(CompositionWatchTest, findsAFieldThatComposesAlready)
{
    field.compose(true);
    window.focus(&field);

    EXPECT_TRUE(watch.isComposing());
    EXPECT_TRUE(CompositionWatch(window).isComposing());
}

TEST_F(CompositionWatchTest, isComposingStillWhileItTellsOfTheEnd)
{
    bool wasComposing = false;
    QObject::connect(&watch, &CompositionWatch::ending, &window, [&] { wasComposing = watch.isComposing(); });
    window.focus(&field);

    field.compose(true);
    field.compose(false);

    EXPECT_TRUE(wasComposing);
}

TEST_F(CompositionWatchTest, endsWhereTheKeyboardGoesToAnotherItem)
{
    QObject button;
    window.focus(&field);
    field.compose(true);

    window.focus(&button);
    EXPECT_FALSE(watch.isComposing());
    EXPECT_EQ(ending.size(), 1);

    field.compose(false);
    field.compose(true);
    EXPECT_FALSE(watch.isComposing());
}

TEST_F(CompositionWatchTest, endsWithItsField)
{
    auto other = std::make_unique<Field>();
    window.focus(other.get());
    other->compose(true);

    window.focus(nullptr);
    other.reset();

    EXPECT_FALSE(watch.isComposing());
}

} // namespace
} // namespace glimmet

#include "CompositionWatchTest.moc"
