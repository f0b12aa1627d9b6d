#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QValidator>

class QKeyEvent;

namespace glimmet {

/// Makes a text field of the toolkit's take input as people expect of a line of text. A line break becomes a
/// blank, whichever way it comes; what is pasted with the keyboard, or committed by an input method, can be
/// undone all the same. Backspace removes an emoji whole, however many code points it is made of. What is
/// being composed belongs to the text once the window is pressed beside the field, or loses the keyboard.
/// An input method is told nothing of a hidden text but its length.
class LineInput : public QValidator {
    Q_OBJECT
    QML_ELEMENT
    /// The field; it has this as its validator.
    Q_PROPERTY(QQuickItem *target READ target WRITE setTarget NOTIFY targetChanged)

public:
    using QValidator::QValidator;

    QQuickItem *target() const { return m_target; }
    void setTarget(QQuickItem *field);

    /// Any text is valid once its line breaks are blanks.
    State validate(QString &text, int &position) const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void targetChanged();

private slots:
    void followComposition();

private:
    bool filterOfField(QEvent &event);
    /// Each tells whether that was all there is to do.
    bool handleKey(const QKeyEvent &event);
    bool paste();
    bool removeEmoji();
    /// Puts `text` in the place of what is selected, or of `length` units before the caret: one edit.
    void replace(int length, const QString &text);

    /// What follows is undone on its own.
    void endStep();
    QString text() const;
    int caret() const;
    bool hasSelection() const;
    bool isHidden() const;
    bool isComposing() const;
    void commitComposition();
    bool isBeside(QEvent &press) const;

    QQuickItem *m_target = nullptr;
    QPointer<QQuickWindow> m_pressed; ///< the window, while its presses are looked at
};

} // namespace glimmet
