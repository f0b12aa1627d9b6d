#pragma once

#include "platform/desktop/LoginItem.h"

namespace glimmet {

/// The program's entry in the user's autostart folder, which every desktop reads.
class AutostartLoginItem final : public LoginItem {
public:
    /// `folder` need not be there yet; `executable` is what is started.
    AutostartLoginItem(const QString &folder, QString executable);
    /// The user's own.
    static QString defaultFolder();

    LoginItemStatus status() const override;
    void registerItem(const Completion &completion) override;
    void unregisterItem(const Completion &completion) override;

private:
    QString m_path;
    QString m_executable;
};

} // namespace glimmet
