#pragma once

#include "app/StripFace.h"
#include "app/StripPicture.h"

#include <QRasterWindow>

namespace glimmet {

class FrameStack;
class Timers;
struct ScreenSpace;

/// The strip as a window of the X server's, at the upper edge of the primary screen, below a bar that is
/// there.
class StripWindow final : public StripFace {
    Q_OBJECT

public:
    /// `timers` outlives it.
    StripWindow(Timers &timers, int inset);
    ~StripWindow() override;

    void setText(const QString &text) override;
    void setColors(const BarColors &colors) override;
    std::optional<QPoint> anchor() const override;

private:
    class Window;

    void place();
    void fit();
    ScreenSpace space(const QScreen &screen) const;
    int insetOf(int wanted) const;
    void handlePress(unsigned button, int position);
    void handleMove(int position);

    std::unique_ptr<Window> m_window;
    StripPress m_press;
    int m_inset;
    QRect m_geometry; ///< as it was asked for, logical
    QList<QMetaObject::Connection> m_screenConnections;
    std::unique_ptr<FrameStack> m_stack; ///< on i3
};

} // namespace glimmet
