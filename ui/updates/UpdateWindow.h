#pragma once

#include "ui/panel/PanelModule.h"
#include "ui/updates/UpdateWindowModel.h"

#include <QQuickView>

namespace glimmet {

class Appearance;

/// The window of software updates: titled, as high as what it says. It carries an engine of its own, so that
/// closing it gives everything back.
class UpdateWindow final : public UpdatePanel {
public:
    UpdateWindow(const UpdateState &state, const UpdateAnswers &answers, const DesktopLook &look);

    QWindow &window() override { return m_view; }
    void setLook(const DesktopLook &look) override;
    void setState(const UpdateState &state) override { m_model.setState(state); }

private:
    void connectAnswers(const UpdateAnswers &answers);
    void fit();

    UpdateWindowModel m_model;
    QQuickView m_view;
    Appearance &m_appearance; ///< the engine's
};

} // namespace glimmet
