#pragma once

#include "app/MenuBarHost.h"
#include "app/StripFace.h"

#include <functional>
#include <memory>

namespace glimmet {

/// Shows the text in a small strip of our own at the screen's upper edge, for desktops that have no place for
/// it. The user may drag it along that edge; it stays there for this run of the program.
class StripHost final : public MenuBarHost {
    Q_OBJECT

public:
    /// Makes the strip so far from the screen's right end, in logical pixels; none where there can be none.
    using MakeFace = std::function<std::unique_ptr<StripFace>(int inset)>;

    explicit StripHost(MakeFace makeFace, QObject *parent = nullptr);
    ~StripHost() override;

    bool isAvailable() const override { return true; }
    QString place() const override;
    void setText(const QString &text) override;
    void setShown(bool shown) override;
    void setColorScheme(ColorScheme scheme) override;
    std::optional<QPoint> anchor() const override;
    bool knowsEdge() const override { return anchor().has_value(); }

private:
    const MakeFace m_makeFace;
    QString m_text;
    ColorScheme m_scheme = ColorScheme::Light;
    bool m_isShown = false;
    std::unique_ptr<StripFace> m_face;
    int m_inset;
};

} // namespace glimmet
