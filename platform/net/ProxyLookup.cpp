#include "platform/net/ProxyLookup.h"

namespace glimmet {

void ProxyLookup::find(int number, const QByteArray &address)
{
    if (!m_factory)
        m_factory.reset(px_proxy_factory_new());
    emit found(number, firstProxy(address));
}

QByteArray ProxyLookup::firstProxy(const QByteArray &address)
{
    char **proxies = px_proxy_factory_get_proxies(m_factory.get(), address.constData());
    if (proxies == nullptr)
        return {};
    // The others are for where the first fails, which the user is told instead.
    const QByteArray first = curlProxy(proxies[0]);
    px_proxy_factory_free_proxies(proxies);
    return first;
}

QByteArray curlProxy(const QByteArray &proxy)
{
    if (proxy.startsWith("socks5://"))
        return "socks5h" + proxy.sliced(6);
    if (proxy.startsWith("socks4://"))
        return "socks4a" + proxy.sliced(6);
    if (proxy.startsWith("socks://"))
        return "socks5h" + proxy.sliced(5);
    return proxy.startsWith("http://") || proxy.startsWith("https://") ? proxy : QByteArray();
}

} // namespace glimmet
