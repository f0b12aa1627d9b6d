#pragma once

#include "platform/desktop/BarColors.h"
#include "platform/desktop/I3Connection.h"

#include <QObject>

namespace glimmet {

/// Asks i3 or sway once what its bar is drawn in, over a connection that then ends. Nothing waits: the answer
/// comes a moment later, or never. Main thread.
class BarColorsWatch final : public QObject {
    Q_OBJECT

public:
    /// Of i3 or sway, whichever runs here; empty elsewhere.
    static QByteArray defaultPath();

    /// `path`: of the socket; nothing is asked where it is empty.
    explicit BarColorsWatch(const QByteArray &path, QObject *parent = nullptr);

signals:
    void found(const glimmet::BarColors &colors);

private:
    void handle(const QByteArray &payload);
    /// About a bar, or without one which there are.
    void ask(const QByteArray &bar);

    I3Connection m_connection;
    bool m_knowsBar = false;
};

} // namespace glimmet
