#include "platform/net/ProxyLookup.h"

#include <proxy.h>

namespace glimmet {

void ProxyLookup::find(int number, const QByteArray &address)
{
    if (!m_factory)
        m_factory = std::shared_ptr<pxProxyFactory>(px_proxy_factory_new(), px_proxy_factory_free);
    emit found(number, firstProxy(address));
}

QByteArray ProxyLookup::firstProxy(const QByteArray &address)
{
    auto *factory = static_cast<pxProxyFactory *>(m_factory.get());
    char **proxies = px_proxy_factory_get_proxies(factory, address.constData());
    if (proxies == nullptr)
        return {};
    // The others are for where the first fails, which the user is told instead.
    const QByteArray first = curlProxy(proxies[0]);
    px_proxy_factory_free_proxies(proxies);
    return first;
}

QByteArray curlProxy(const QByteArray &proxy)
{
    const qsizetype colon = proxy.indexOf("://");
    if (colon < 0)
        return proxy.isEmpty() ? proxy : "http://" + proxy;
    const QByteArray kind = proxy.first(colon).toLower();
    if (kind == "direct")
        return {};
    if (kind == "socks" || kind == "socks5")
        return "socks5h" + proxy.sliced(colon);
    if (kind == "socks4")
        return "socks4a" + proxy.sliced(colon);
    return kind + proxy.sliced(colon);
}

} // namespace glimmet
