#include "platform/net/HttpExchange.h"

#include "platform/net/CertificateFolder.h"
#include "platform/net/HttpFailures.h"
#include "platform/net/HttpRedirection.h"

#include <cstring>

namespace glimmet {
namespace {

constexpr int mostRedirections = 10;
constexpr long receiveBuffer = 64L << 10; // bytes
/// What encryption adds to what is small, in bytes.
constexpr qint64 encryption = qint64(64) << 10;

template <typename Value> void set(CURL *handle, CURLoption option, Value value)
{
    curl_easy_setopt(handle, option, value);
}

/// As curl wants it: a header without a value is another matter there, namely one to leave out.
QByteArray headerLine(const QByteArray &name, const QByteArray &value)
{
    return value.trimmed().isEmpty() ? name + ';' : name + ": " + value;
}

curl_slist *headerLines(const HttpRequest &request)
{
    // Asked for by name, it is not unpacked by curl (see HttpBody).
    curl_slist *lines = curl_slist_append(nullptr, "Accept-Encoding: gzip");
    if (!request.authorization->isEmpty()) {
        const SecretBytes line("Authorization: " + *request.authorization);
        lines = curl_slist_append(lines, line->constData());
    }
    for (const auto &[name, value] : request.headers)
        lines = curl_slist_append(lines, headerLine(name, value).constData());
    return lines;
}

/// What is asked for at the server, byte for byte.
QByteArray target(const QUrl &url)
{
    const QByteArray target =
        url.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
    return target.startsWith('/') ? target : '/' + target;
}

bool isReusing(CURL *handle)
{
    long connectionsMade = 0;
    curl_easy_getinfo(handle, CURLINFO_NUM_CONNECTS, &connectionsMade);
    return connectionsMade == 0;
}

/// Whether the folder of the system's certificates will do; looked at once.
bool hasUsableFolder()
{
    static const bool isUsable = isCertificateFolder(curl_version_info(CURLVERSION_NOW)->capath);
    return isUsable;
}

/// What a step does never and always, whatever it asks for.
void setRules(CURL *handle)
{
    set(handle, CURLOPT_PROTOCOLS_STR, "https");
    set(handle, CURLOPT_HTTP_VERSION, long(CURL_HTTP_VERSION_1_1));
    set(handle, CURLOPT_HTTPAUTH, CURLAUTH_NONE);
    set(handle, CURLOPT_FOLLOWLOCATION, 0L);
    set(handle, CURLOPT_HTTP_CONTENT_DECODING, 0L);
    set(handle, CURLOPT_NETRC, long(CURL_NETRC_IGNORED));
    set(handle, CURLOPT_SSLVERSION, long(CURL_SSLVERSION_TLSv1_2));
    set(handle, CURLOPT_NOSIGNAL, 1L);
    // A name that is still looked up is not waited for.
    set(handle, CURLOPT_QUICK_EXIT, 1L);
    set(handle, CURLOPT_USERAGENT, "glimmet"); // unless a header says another
    set(handle, CURLOPT_BUFFERSIZE, receiveBuffer);
}

/// curl adds what the environment says where it is told of no proxy; the environment is asked already.
void setProxy(CURL *handle, const QByteArray &proxy)
{
    set(handle, CURLOPT_PROXY, proxy.constData());
    set(handle, CURLOPT_NOPROXY, "");
    set(handle, CURLOPT_SOCKS5_AUTH, CURLAUTH_BASIC); // never the user's own ticket
    set(handle, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
}

} // namespace

void HttpExchange::ListDeleter::operator()(curl_slist *list) const
{
    for (const curl_slist *line = list; line != nullptr; line = line->next)
        explicit_bzero(line->data, std::strlen(line->data)); // One of them has the key in it.
    curl_slist_free_all(list);
}

HttpExchange::HttpExchange(HttpSettings settings, HttpRequest request, Finished finished)
    : m_settings(std::move(settings))
    , m_request(std::move(request))
    , m_finished(std::move(finished))
    , m_asked(std::chrono::steady_clock::now())
    , m_lastProgress(m_asked)
    , m_url(QUrl::fromEncoded(m_request.address, QUrl::StrictMode))
    , m_headers(headerLines(m_request))
{
}

QByteArray HttpExchange::origin() const
{
    return m_url.host(QUrl::FullyEncoded).toLatin1() + ':' + QByteArray::number(m_url.port(443));
}

void HttpExchange::prepare(CURL *handle, const QByteArray &proxy, SocketWatch &sockets, TlsWatch &tls)
{
    beginStep();
    m_handle = handle;
    m_sockets = &sockets;
    m_tls = &tls;
    m_usesProxy = !proxy.isEmpty();
    curl_easy_reset(handle);
    setRules(handle);
    setProxy(handle, proxy);
    sockets.watch(handle);
    setTrust();
    setAddress();
    setCallbacks();
    // The first of several addresses gets half of this, the next half of the rest.
    set(handle, CURLOPT_CONNECTTIMEOUT_MS, long(m_settings.idleTimeout.count()));
    set(handle, CURLOPT_FRESH_CONNECT, m_isRepeated ? 1L : 0L);
}

void HttpExchange::beginStep()
{
    m_lastProgress = std::chrono::steady_clock::now();
    if (!m_begun)
        m_begun = m_lastProgress;
    m_errorText[0] = '\0';
    m_connection = nullptr;
    m_wasSent = false;
    m_isRefused = false;
    m_head = {};
    m_body.reset();
}

void HttpExchange::setAddress()
{
    set(m_handle, CURLOPT_URL, m_url.toEncoded(QUrl::RemoveFragment).constData());
    set(m_handle, CURLOPT_REQUEST_TARGET, target(m_url).constData());
    set(m_handle, CURLOPT_HTTPHEADER, m_headers.get());
}

void HttpExchange::setTrust() const
{
    m_tls->watch(m_handle);
    if (!m_settings.authorities.isEmpty()) {
        curl_blob authorities{ const_cast<char *>(m_settings.authorities.constData()),
            size_t(m_settings.authorities.size()), CURL_BLOB_COPY };
        set(m_handle, CURLOPT_CAINFO_BLOB, &authorities);
        set<const char *>(m_handle, CURLOPT_CAPATH, nullptr);
    } else if (hasUsableFolder()) {
        // The folder serves the one certificate that is asked for; the file is read as a whole, which takes
        // longer than an answer and megabytes.
        set<const char *>(m_handle, CURLOPT_CAINFO, nullptr);
    }
}

void HttpExchange::setCallbacks()
{
    set(m_handle, CURLOPT_PREREQFUNCTION, aboutToSend);
    set(m_handle, CURLOPT_PREREQDATA, this);
    set(m_handle, CURLOPT_HEADERFUNCTION, takeLine);
    set(m_handle, CURLOPT_HEADERDATA, this);
    set(m_handle, CURLOPT_WRITEFUNCTION, takeBody);
    set(m_handle, CURLOPT_WRITEDATA, this);
    set(m_handle, CURLOPT_ERRORBUFFER, m_errorText.data());
}

int HttpExchange::aboutToSend(void *exchange, char *, char *, int, int localPort)
{
    auto &self = *static_cast<HttpExchange *>(exchange);
    self.m_lastProgress = std::chrono::steady_clock::now();
    // curl would send it again over one kept connection after the other; the one repetition goes over a fresh
    // one.
    if (self.m_wasSent)
        return CURL_PREREQFUNC_ABORT;
    self.m_wasSent = true;
    self.m_connection = TlsWatch::connectionOf(self.m_handle);
    // What a server sent before it was asked is no answer; most often, it is a farewell.
    const bool hasUnread = TlsWatch::hasUnread(self.m_connection) || self.m_sockets->hasUnread(localPort);
    if (hasUnread && isReusing(self.m_handle))
        return CURL_PREREQFUNC_ABORT;
    self.m_receivedBefore = TlsWatch::received(self.m_connection);
    return CURL_PREREQFUNC_OK;
}

size_t HttpExchange::takeLine(char *line, size_t, size_t count, void *exchange)
{
    auto &self = *static_cast<HttpExchange *>(exchange);
    self.m_isRefused = !self.read({ line, qsizetype(count) });
    return self.m_isRefused ? 0 : count;
}

size_t HttpExchange::takeBody(char *piece, size_t, size_t count, void *exchange)
{
    auto &self = *static_cast<HttpExchange *>(exchange);
    self.m_isRefused = !self.collect({ piece, qsizetype(count) });
    return self.m_isRefused ? 0 : count;
}

bool HttpExchange::read(QByteArrayView line)
{
    m_lastProgress = std::chrono::steady_clock::now();
    return m_head.append(line) && !isFlooded();
}

bool HttpExchange::collect(QByteArrayView piece)
{
    m_lastProgress = std::chrono::steady_clock::now();
    if (!m_body)
        m_body.emplace(m_head.contentEncoding(), m_request.largestBody);
    return m_body->append(piece) && !isFlooded();
}

bool HttpExchange::isFlooded() const
{
    // curl lets go of a connection by itself.
    if (m_connection == nullptr || TlsWatch::connectionOf(m_handle) != m_connection)
        return false;
    const qint64 most = 2 * m_request.largestBody + HttpHead::longest + encryption;
    return TlsWatch::received(m_connection) - m_receivedBefore > most;
}

std::optional<HttpResult> HttpExchange::conclude(CURLcode code)
{
    if (shallBeRepeated(code)) {
        m_isRepeated = true;
        return std::nullopt;
    }
    HttpResult ending = result(code);
    const auto *answer = std::get_if<HttpAnswer>(&ending);
    const auto next = answer ? redirection(m_url, answer->status, m_head.location()) : std::nullopt;
    if (!next || m_redirections == mostRedirections)
        return ending;
    ++m_redirections;
    m_isRepeated = false;
    m_url = *next;
    return std::nullopt;
}

bool HttpExchange::shallBeRepeated(CURLcode code) const
{
    if (m_isRepeated || !m_wasSent || m_head.hasBegun())
        return false;
    if (code == CURLE_ABORTED_BY_CALLBACK) // before it was sent, or before curl would have sent it again
        return true;
    const bool isBroken = code == CURLE_GOT_NOTHING || code == CURLE_SEND_ERROR || code == CURLE_RECV_ERROR;
    return isBroken && isReusing(m_handle);
}

HttpResult HttpExchange::result(CURLcode code) const
{
    if (m_isRefused)
        return TransportFailure::ConnectionLost;
    if (code != CURLE_OK) {
        const bool hasConnected = m_wasSent || m_tls->hasBegun(m_handle);
        return transportFailure(m_handle, code, { m_errorText.data(), m_usesProxy, hasConnected });
    }
    if (!isWhole())
        return TransportFailure::ConnectionLost;
    return HttpAnswer{ m_head.status(), m_body ? m_body->bytes() : QByteArray() };
}

bool HttpExchange::isWhole() const
{
    if (!m_head.isComplete() || (m_body && !m_body->isWhole()))
        return false;
    if (m_head.isBodyEndedByClosing())
        return m_tls->hasTakenLeave(m_connection);
    const qint64 received = m_body ? m_body->received() : 0;
    return received == m_head.bodyLength().value_or(received);
}

} // namespace glimmet
