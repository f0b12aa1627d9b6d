#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace glimmet {

/// Turns the signals that ask a program to end (SIGINT, SIGTERM, SIGHUP) into one of Qt's. One object a
/// process.
class QuitSignals : public QObject {
    Q_OBJECT

public:
    explicit QuitSignals(QObject *parent = nullptr);

signals:
    void received();

private:
    QSocketNotifier m_notifier;
};

} // namespace glimmet
