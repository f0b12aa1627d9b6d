#pragma once

#include "app/PanelLibrary.h"
#include "platform/desktop/DesktopLook.h"

#include <QObject>

#include <functional>
#include <memory>

namespace glimmet {

class UpdatePanel;
class UpdaterController;

/// Opens the window of software updates when the updater wants it, and closes it when there is nothing more
/// to show. Each opening builds it anew, each closing gives its memory back. Main thread.
class UpdateWindowController final : public QObject {
    Q_OBJECT

public:
    /// `updater` outlives it.
    explicit UpdateWindowController(UpdaterController &updater, QObject *parent = nullptr);
    ~UpdateWindowController() override;

    bool isOpen() const { return m_shown != nullptr; }
    void setLook(const DesktopLook &look);

signals:
    /// The window could not be loaded, in words.
    void failed(const QString &reason);
    /// An update has replaced the program: it has to start again to have a window.
    void replaced();

private:
    void open();
    bool make();
    /// Does that once the event loop goes on: it may destroy the window that asks for it.
    std::function<void()> later(void (UpdaterController::*operation)());
    void follow();
    void handleVisible(bool isVisible);
    void close();

    UpdaterController &m_updater;
    DesktopLook m_look;
    PanelLibrary m_library;
    std::unique_ptr<UpdatePanel> m_shown;
};

} // namespace glimmet
