#pragma once

#include <QObject>
#include <QPointer>

class QWindow;

namespace glimmet {

/// Whether the text field of a window that has the keyboard shows a text that an input method is still
/// composing. Main thread.
class CompositionWatch : public QObject {
    Q_OBJECT

public:
    /// `window` outlives it.
    explicit CompositionWatch(const QWindow &window, QObject *parent = nullptr);

    bool isComposing() const { return m_isComposing; }

signals:
    /// What was composed has just been taken into the text, or given up; `isComposing()` still holds.
    void ending();
    /// `isComposing()` is another.
    void changed();

private:
    void followField(QObject *field);

private slots:
    void readField();

private:
    QPointer<QObject> m_field;
    QMetaObject::Connection m_following;
    bool m_isComposing = false;
};

} // namespace glimmet
