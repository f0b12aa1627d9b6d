#pragma once

#include <QObject>
#include <QQuickItem>

namespace glimmet {

/// Enters text as an input method or a compose key does.
class KeyboardProbe : public QObject {
    Q_OBJECT

public:
    /// Shows `text` as what is being composed.
    Q_INVOKABLE static void compose(QQuickItem *field, const QString &text);
    /// Ends composing with `text`.
    Q_INVOKABLE static void commit(QQuickItem *field, const QString &text);
    /// All that an input method is told of the text in the field.
    Q_INVOKABLE static QStringList surroundings(QQuickItem *field);
};

} // namespace glimmet
