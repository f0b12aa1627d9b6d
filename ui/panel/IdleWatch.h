#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace glimmet {

/// Tells whether a window is being used: by the pointer, a finger or the keyboard. Main thread.
class IdleWatch : public QObject {
    Q_OBJECT

public:
    /// Idle after this long without. A child of `window`.
    IdleWatch(QObject &window, std::chrono::milliseconds patience);

    bool isIdle() const { return !m_patience.isActive(); }
    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void changed();

private:
    QTimer m_patience;
};

} // namespace glimmet
