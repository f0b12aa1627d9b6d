#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

namespace glimmet {

/// Keeps the signals of one object that another participant of the bus hears.
class HeardSignals : public QObject {
    Q_OBJECT

public:
    HeardSignals(QDBusConnection listener, const QString &service, const QString &path,
        const QString &interface, const QStringList &signalNames);

    /// Each as its name, a colon and its first argument as text.
    QStringList all;

private slots:
    void hear(const QDBusMessage &message);
};

} // namespace glimmet
