#pragma once

#include "platform/desktop/BarColors.h"

#include <QObject>
#include <QSocketNotifier>

#include <memory>
#include <optional>

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
    ~BarColorsWatch() override;

signals:
    void found(const glimmet::BarColors &colors);

private:
    void readAnswers();
    void handle(const QByteArray &payload);
    void send(const QByteArray &payload);
    void end();

    int m_socket = -1;
    bool m_knowsBar = false;
    QByteArray m_buffer;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace glimmet
