#pragma once

#include <QImage>
#include <QPoint>
#include <QWindow>

#include <cstdint>

struct xcb_connection_t;

namespace glimmet {

/// Puts pixels straight into a window of Qt's on an X server. Qt itself writes into memory that it shares
/// with the server, and has to wait each time until that has read what was there before. Main thread.
class WindowPixels final {
public:
    /// For a window that is created, and stays so for as long as this lives.
    explicit WindowPixels(const QWindow &window);
    ~WindowPixels();
    Q_DISABLE_COPY_MOVE(WindowPixels)

    /// `picture`: QImage::Format_RGB32; `place`: of its upper left corner, in native pixels of the window.
    /// False where nothing was done: without an X server, or where its pixels are others or take no so large
    /// picture.
    bool put(const QImage &picture, QPoint place) const;

private:
    xcb_connection_t *m_connection;
    uint32_t m_window;
    uint32_t m_context = 0;
    uint8_t m_depth = 0; ///< of the window; 0 where nothing can be put
};

} // namespace glimmet
