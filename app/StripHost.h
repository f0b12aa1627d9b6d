#pragma once

#include "app/MenuBarHost.h"
#include "app/StripFace.h"

#include <functional>
#include <memory>

namespace glimmet {

class BarColorsWatch;

/// Shows the text in a small strip of our own at the screen's upper edge, for desktops that have no place for
/// it. The user may drag it along that edge; it stays there for this run of the program.
class StripHost final : public MenuBarHost {
    Q_OBJECT

public:
    /// Makes the strip so far from the screen's right end, in logical pixels; none where there can be none.
    using MakeFace = std::function<std::unique_ptr<StripFace>(int inset)>;

    /// Asks for the colours of a bar that is there, at each showing of the strip.
    using AskForColors = std::function<std::unique_ptr<BarColorsWatch>()>;

    StripHost(MakeFace makeFace, AskForColors askForColors, QObject *parent = nullptr);
    ~StripHost() override;

    bool isAvailable() const override { return true; }
    QString place() const override;
    void setText(const QString &text) override;
    void setShown(bool shown) override;
    void setColorScheme(ColorScheme scheme) override;
    std::optional<QPoint> anchor() const override;
    bool knowsEdge() const override { return anchor().has_value(); }

private:
    void draw();
    void takeColors(const BarColors &colors);

    const MakeFace m_makeFace;
    const AskForColors m_askForColors;
    std::unique_ptr<BarColorsWatch> m_colorsWatch;
    std::optional<BarColors> m_barColors;
    QString m_text;
    ColorScheme m_scheme = ColorScheme::Light;
    bool m_isShown = false;
    std::unique_ptr<StripFace> m_face;
    int m_inset;
};

} // namespace glimmet
