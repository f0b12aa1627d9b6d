#include "ui/controls/LineInput.h"

#include "ui/controls/LineText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointerEvent>

namespace glimmet {

namespace {

void clean(QInputMethodEvent &event)
{
    event.setCommitString(
        singleLine(event.commitString()), event.replacementStart(), event.replacementLength());
}

/// The toolkit answers with the text itself, also where it is hidden.
void answerInDots(QObject &field, QInputMethodQueryEvent &query)
{
    field.event(&query);
    for (const auto text :
        { Qt::ImSurroundingText, Qt::ImTextBeforeCursor, Qt::ImTextAfterCursor, Qt::ImCurrentSelection }) {
        if (query.queries() & text)
            query.setValue(text, QString(query.value(text).toString().size(), u'•'));
    }
}

} // namespace

void LineInput::setTarget(QQuickItem *field)
{
    if (m_target == field)
        return;
    m_target = field;
    m_target->installEventFilter(this);
    // The toolkit's type of a text field is its own affair.
    connect(m_target, SIGNAL(inputMethodComposingChanged()), this, SLOT(followComposition()));
    emit targetChanged();
}

QValidator::State LineInput::validate(QString &text, int &position) const
{
    text = singleLine(text, &position);
    return Acceptable;
}

bool LineInput::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_target)
        return filterOfField(*event);
    // The controls around do not take the keyboard by a press, at which the toolkit would do this.
    if (event->type() == QEvent::FocusAboutToChange || isBeside(*event))
        commitComposition();
    return false;
}

bool LineInput::filterOfField(QEvent &event)
{
    if (event.type() == QEvent::KeyPress)
        return handleKey(static_cast<QKeyEvent &>(event));
    if (event.type() == QEvent::InputMethod)
        clean(static_cast<QInputMethodEvent &>(event));
    if (event.type() != QEvent::InputMethodQuery || !isHidden())
        return false;
    answerInDots(*m_target, static_cast<QInputMethodQueryEvent &>(event));
    return true;
}

void LineInput::followComposition()
{
    if (m_pressed)
        m_pressed->removeEventFilter(this);
    m_pressed = isComposing() ? m_target->window() : nullptr;
    if (m_pressed)
        m_pressed->installEventFilter(this);
}

bool LineInput::handleKey(const QKeyEvent &event)
{
    if (event.matches(QKeySequence::Paste))
        return paste();
    const bool isBackspace = event.key() == Qt::Key_Backspace && event.modifiers() == Qt::NoModifier;
    return isBackspace && removeEmoji();
}

bool LineInput::paste()
{
    const QString pasted = QGuiApplication::clipboard()->text();
    const QString line = singleLine(pasted);
    if (line == pasted)
        return false;
    endStep();
    replace(0, line);
    endStep();
    return true;
}

bool LineInput::removeEmoji()
{
    if (hasSelection() || isComposing())
        return false;
    const int length = emojiLengthBefore(text(), caret());
    if (length == 0)
        return false;
    replace(length, QString());
    return true;
}

void LineInput::endStep()
{
    // A selection that is replaced is a step anyway. Else only a move of the caret ends one.
    if (hasSelection())
        return;
    const int position = caret();
    m_target->setProperty("cursorPosition", position > 0 ? position - 1 : position + 1);
    m_target->setProperty("cursorPosition", position);
}

QString LineInput::text() const
{
    return m_target->property("text").toString();
}

int LineInput::caret() const
{
    return m_target->property("cursorPosition").toInt();
}

bool LineInput::hasSelection() const
{
    return m_target->property("selectionStart") != m_target->property("selectionEnd");
}

bool LineInput::isHidden() const
{
    // Its echo mode is an enumeration that the toolkit keeps to itself: everything but Normal, its first,
    // hides.
    return m_target->property("echoMode").toInt() != 0;
}

bool LineInput::isComposing() const
{
    return m_target->property("inputMethodComposing").toBool();
}

void LineInput::commitComposition()
{
    const QString before = text();
    const QString composed = m_target->property("preeditText").toString();
    QInputMethod &inputMethod = *QGuiApplication::inputMethod();
    inputMethod.commit();
    // Fcitx leaves that undone, and commits when it is reset.
    if (isComposing())
        inputMethod.reset();
    // What most engines of IBus compose, they would have dropped, and newer releases of the toolkit do so.
    if (text() == before)
        replace(0, composed);
}

bool LineInput::isBeside(QEvent &press) const
{
    if (press.type() != QEvent::MouseButtonPress && press.type() != QEvent::TouchBegin)
        return false;
    const QPointF position = static_cast<QPointerEvent &>(press).point(0).scenePosition();
    return !m_target->contains(m_target->mapFromScene(position));
}

void LineInput::replace(int length, const QString &text)
{
    QInputMethodEvent edit;
    edit.setCommitString(text, -length, length);
    QCoreApplication::sendEvent(m_target, &edit);
}

} // namespace glimmet
