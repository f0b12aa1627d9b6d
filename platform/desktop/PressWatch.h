#pragma once

#include <QObject>
#include <QPoint>
#include <QSocketNotifier>

#include <memory>

struct xcb_connection_t;

namespace glimmet {

/// Tells of every press of a pointer button, and of every finger put down, anywhere on the X server while it
/// lives, without keeping the press from the window that it is meant for: a grab would swallow the click on
/// the menu-bar item that shall close the panel. It has a connection of its own; where Qt uses no X server it
/// asks none, and tells of nothing. Main thread.
class PressWatch : public QObject {
    Q_OBJECT

public:
    enum class Ground { Window, Background };
    Q_ENUM(Ground)

    explicit PressWatch(QObject *parent = nullptr);
    ~PressWatch() override;

    /// Tells now of all presses so far, so that a click which came by another way comes after its own press.
    void catchUp();

signals:
    /// Where the pointer is now, which goes with the finger, in native pixels of the root window, and whether
    /// a window is there or vanished since.
    void pressed(QPoint position, glimmet::PressWatch::Ground ground);
    /// Which window the window manager calls active from now on; 0: none.
    void activated(quint32 window);

private:
    struct Pointer {
        QPoint position{ -1, -1 };
        Ground ground = Ground::Background;
    };

    /// What came since the last look.
    struct News {
        bool wasPressed = false;
        /// After the press.
        bool didWindowVanish = false;
        bool wasActivated = false;
    };

    void readEvents();
    News takeEvents(News news);
    quint32 activeWindow() const;
    Pointer pointer() const;

    xcb_connection_t *m_connection;
    quint32 m_activeWindowAtom = 0;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace glimmet
