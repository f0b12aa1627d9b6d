#pragma once

#include "platform/desktop/LoginItem.h"

#include <QByteArray>
#include <QString>

#include <functional>

/// A program's entry in the user's autostart folder
/// (https://specifications.freedesktop.org/autostart-spec,
/// https://specifications.freedesktop.org/desktop-entry-spec).
namespace glimmet {

/// The entry that starts `executable`, an absolute path of any characters, everywhere.
QByteArray autostartEntry(const QString &executable);

/// What an entry of this content says. `isExecutable` tells whether there is a program of a path or, without
/// a slash, of a name.
LoginItemStatus statusOfAutostartEntry(
    const QByteArray &content, const std::function<bool(const QString &)> &isExecutable);

} // namespace glimmet
