#pragma once

#include <QObject>
#include <QQuickItem>
#include <QQuickWindow>

namespace glimmet {

/// Enters text as an input method or a compose key does, and holds keys down.
class KeyboardProbe : public QObject {
    Q_OBJECT

public:
    /// Shows `text` as what is being composed.
    Q_INVOKABLE static void compose(QQuickItem *field, const QString &text);
    /// Ends composing with `text`.
    Q_INVOKABLE static void commit(QQuickItem *field, const QString &text);
    /// Holds the key until it has repeated itself so often; what has the keyboard gets it.
    Q_INVOKABLE static void hold(QQuickWindow *window, int key, int repetitions);
    /// Presses the key as it arrives from a screen reader that listens to the keys and has no use for it.
    Q_INVOKABLE static void handOn(QQuickWindow *window, int key);
    /// All that an input method is told of the text in the field.
    Q_INVOKABLE static QStringList surroundings(QQuickItem *field);
};

} // namespace glimmet
