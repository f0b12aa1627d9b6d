#pragma once

#include <QByteArray>
#include <QObject>

#include <memory>

namespace glimmet {

/// Asks libproxy, which answers when it can: that may take a script that is fetched from somewhere. Lives on
/// a thread that may wait.
class ProxyLookup final : public QObject {
    Q_OBJECT

public:
    void find(int number, const QByteArray &address);

signals:
    /// To the question with that number: the proxy that leads there as curl takes it; empty: none does.
    void found(int number, const QByteArray &proxy);

private:
    QByteArray firstProxy(const QByteArray &address);

    std::shared_ptr<void> m_factory; ///< libproxy's, whose header is elsewhere on each system
};

/// What libproxy calls `proxy`, as curl calls it: one of SOCKS looks the names up itself. Empty for
/// "direct://" alone: a kind that curl does not know fails, rather than being gone round.
QByteArray curlProxy(const QByteArray &proxy);

} // namespace glimmet
