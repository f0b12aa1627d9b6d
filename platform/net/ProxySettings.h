#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QThread>

#include <functional>
#include <map>

namespace glimmet {

class ProxyLookup;

/// The proxies that the environment (https_proxy, no_proxy) and the desktop's settings say, asked for on a
/// thread of its own: the answer may take a script that is fetched from somewhere.
class ProxySettings final : public QObject {
    Q_OBJECT

public:
    explicit ProxySettings(QObject *parent = nullptr);
    /// A look-up that does not end is left behind.
    ~ProxySettings() override;

    /// Calls `found` once, on this object's thread and never within this call, with the proxy that leads to
    /// `address` as curl takes it; empty: none does. Not at all where `receiver` is gone by then.
    void find(
        const QByteArray &address, QObject *receiver, std::function<void(const QByteArray &proxy)> found);

private:
    struct Question {
        QPointer<QObject> receiver;
        std::function<void(const QByteArray &proxy)> found;
    };

    ProxyLookup &lookup();
    void answer(int number, const QByteArray &proxy);

    QThread *m_thread; ///< own; left behind where it does not end
    ProxyLookup *m_lookup = nullptr; ///< lives on the thread and ends with it
    std::map<int, Question> m_questions;
    int m_lastNumber = 0;
};

} // namespace glimmet
