#include "platform/net/TlsWatch.h"

#include <openssl/ssl.h>

namespace glimmet {

void TlsWatch::noteEvent(const SSL *connection, int event, int value)
{
    auto &goodbyes = static_cast<TlsWatch *>(SSL_CTX_get_app_data(SSL_get_SSL_CTX(connection)))->m_goodbyes;
    // A new connection may be known by what an old one was.
    if ((event & SSL_CB_HANDSHAKE_START) != 0)
        goodbyes.erase(connection);
    // The level of the alert is in front of its number.
    if ((event & SSL_CB_READ_ALERT) == SSL_CB_READ_ALERT && (value & 0xFF) == SSL_AD_CLOSE_NOTIFY)
        goodbyes.insert(connection);
}

CURLcode TlsWatch::watchEvents(CURL *handle, void *context, void *watch)
{
    static_cast<TlsWatch *>(watch)->m_begun.insert(handle);
    auto *encryption = static_cast<SSL_CTX *>(context);
    SSL_CTX_set_app_data(encryption, watch);
    SSL_CTX_set_info_callback(encryption, noteEvent);
    // OpenSSL reads on and on while what comes is for itself alone; curl is told instead, so that other
    // connections have their turn.
    SSL_CTX_clear_mode(encryption, SSL_MODE_AUTO_RETRY);
    return CURLE_OK;
}

void TlsWatch::watch(CURL *handle)
{
    m_begun.erase(handle);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_DATA, this);
    curl_easy_setopt(handle, CURLOPT_SSL_CTX_FUNCTION, watchEvents);
}

TlsWatch::Connection TlsWatch::connectionOf(CURL *handle)
{
    curl_tlssessioninfo *session = nullptr;
    curl_easy_getinfo(handle, CURLINFO_TLS_SSL_PTR, &session);
    return session ? session->internals : nullptr;
}

qint64 TlsWatch::received(Connection connection)
{
    BIO *bytes = connection ? SSL_get_rbio(static_cast<const SSL *>(connection)) : nullptr;
    return bytes ? static_cast<qint64>(BIO_number_read(bytes)) : 0;
}

bool TlsWatch::hasUnread(Connection connection)
{
    return connection && SSL_has_pending(static_cast<const SSL *>(connection)) == 1;
}

} // namespace glimmet
