#pragma once

#include <QObject>
#include <QQuickItem>

namespace glimmet {

/// Sees and uses a control as a screen reader does.
class AccessibleProbe : public QObject {
    Q_OBJECT

public:
    /// Lines such as "Button Quit", one for each thing that is told of in `root`, in order. What is checked
    /// ends in " [x]", what is not in " [ ]".
    Q_INVOKABLE static QStringList told(QQuickItem *root);
    /// Presses, or toggles, what is called `name` in `root`; false where nothing offers it.
    Q_INVOKABLE static bool press(QQuickItem *root, const QString &name);
    Q_INVOKABLE static bool toggle(QQuickItem *root, const QString &name);
    /// The same for any action, such as "Increase".
    Q_INVOKABLE static bool act(QQuickItem *root, const QString &name, const QString &action);
    /// The number of what is called `name`, with the ends of its range: [lowest, number, highest]; empty
    /// where it has none.
    Q_INVOKABLE static QList<int> numbers(QQuickItem *root, const QString &name);
    Q_INVOKABLE static bool setNumber(QQuickItem *root, const QString &name, int number);
    Q_INVOKABLE static QString description(QQuickItem *root, const QString &name);
    /// The text that what is called `name` shows; empty where it offers none to be read.
    Q_INVOKABLE static QString shownText(QQuickItem *root, const QString &name);
    /// Every text of the field called `name` that can be read, by each of the ways there are.
    Q_INVOKABLE static QStringList read(QQuickItem *root, const QString &name);
    /// Whether the field is told as one whose text shall not be seen.
    Q_INVOKABLE static bool isPassword(QQuickItem *root, const QString &name);
    /// Whether the field offers to be written to as programs that dictate do it.
    Q_INVOKABLE static bool isEditable(QQuickItem *root, const QString &name);
    /// Whether what is called `name` is told as being in view.
    Q_INVOKABLE static bool isInView(QQuickItem *root, const QString &name);
    /// What it offers to do, in that order.
    Q_INVOKABLE static QStringList actions(QQuickItem *root, const QString &name);
    /// Whether it is told as able to take the keyboard.
    Q_INVOKABLE static bool isFocusable(QQuickItem *root, const QString &name);
    /// Whether what is called `name` is told as out of use.
    Q_INVOKABLE static bool isDisabled(QQuickItem *root, const QString &name);
    /// Whether what is called `name` is told as the one of several that counts.
    Q_INVOKABLE static bool isSelected(QQuickItem *root, const QString &name);
    /// Sets a field's whole text, or inserts a text at `position`, as the desktop's bridge does on request.
    Q_INVOKABLE static void write(QQuickItem *root, const QString &name, const QString &text);
    Q_INVOKABLE static void insert(QQuickItem *root, const QString &name, int position, const QString &text);
    /// The texts that came with the events since the last call.
    Q_INVOKABLE static QStringList heard();
};

} // namespace glimmet
