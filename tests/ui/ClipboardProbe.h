#pragma once

#include <QObject>
#include <QString>

namespace glimmet {

/// The desktop's clipboard and the selection that a middle click pastes, as other programs see them.
class ClipboardProbe : public QObject {
    Q_OBJECT

public:
    enum Buffer { Clipboard, Selection };
    Q_ENUM(Buffer)

    Q_INVOKABLE static void set(const QString &text, Buffer buffer = Clipboard);
    Q_INVOKABLE static QString text(Buffer buffer = Clipboard);
    /// What a clipboard's history is told about the text; empty where it may keep it.
    Q_INVOKABLE static QString hint(Buffer buffer = Clipboard);
};

} // namespace glimmet
