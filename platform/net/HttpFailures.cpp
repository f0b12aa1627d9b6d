#include "platform/net/HttpFailures.h"

#include <algorithm>
#include <cerrno>
#include <initializer_list>

namespace glimmet {
namespace {

/// What curl says of a header that is too long, from its version 8.6 on.
constexpr auto tooLarge = static_cast<CURLcode>(100);

/// Whether the proxy was asked for a way to the server and gave none.
bool hasRefusedTheWay(CURL *handle)
{
    long status = 0;
    curl_easy_getinfo(handle, CURLINFO_HTTP_CONNECTCODE, &status);
    return status != 0 && status / 100 != 2;
}

bool hasTimedOut(CURL *handle)
{
    long error = 0;
    curl_easy_getinfo(handle, CURLINFO_OS_ERRNO, &error);
    return error == ETIMEDOUT;
}

/// Whether the other side hung up in the middle of agreeing on how to encrypt: curl has one code for that and
/// for all that can be said instead.
bool isHangUp(QByteArrayView errorText)
{
    const std::initializer_list<const char *> endings{ "SSL_ERROR_SYSCALL", "unexpected eof", "reset by peer",
        "Broken pipe" };
    return std::any_of(
        endings.begin(), endings.end(), [&](const char *ending) { return errorText.contains(ending); });
}

} // namespace

TransportFailure transportFailure(CURL *handle, CURLcode code, const TransferTrace &trace)
{
    if (trace.usesProxy && hasRefusedTheWay(handle))
        return TransportFailure::ProxyFailed;
    if (code == tooLarge)
        return TransportFailure::ConnectionLost;
    switch (code) {
    case CURLE_OPERATION_TIMEDOUT:
        return trace.hasConnected ? TransportFailure::TimedOut : TransportFailure::ConnectingTimedOut;
    case CURLE_URL_MALFORMAT:
        return TransportFailure::InvalidAddress;
    case CURLE_COULDNT_RESOLVE_HOST:
        return TransportFailure::ServerNotFound;
    case CURLE_COULDNT_RESOLVE_PROXY:
        return TransportFailure::ProxyNotReached;
    case CURLE_PROXY:
        return TransportFailure::ProxyFailed;
    case CURLE_COULDNT_CONNECT:
        if (trace.usesProxy)
            return TransportFailure::ProxyNotReached;
        return hasTimedOut(handle) ? TransportFailure::ConnectingTimedOut : TransportFailure::CannotConnect;
    case CURLE_SSL_CONNECT_ERROR:
        return isHangUp(trace.errorText) ? TransportFailure::ConnectionLost : TransportFailure::NotSecure;
    case CURLE_SSL_CIPHER:
        return TransportFailure::NotSecure;
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CACERT_BADFILE:
    case CURLE_SSL_ISSUER_ERROR:
        return TransportFailure::ServerNotTrusted;
    case CURLE_GOT_NOTHING:
    case CURLE_SEND_ERROR:
    case CURLE_RECV_ERROR:
    case CURLE_PARTIAL_FILE:
    case CURLE_BAD_CONTENT_ENCODING: // a coding of the transfer, which was not asked for
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_UNSUPPORTED_PROTOCOL: // an answer that does not begin as one
    case CURLE_ABORTED_BY_CALLBACK: // curl would send it for a third time
    case CURLE_OUT_OF_MEMORY: // what curl 7 says of a header that is too long
        return TransportFailure::ConnectionLost;
    default:
        return TransportFailure::Failed;
    }
}

} // namespace glimmet
