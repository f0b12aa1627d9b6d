#pragma once

#include "platform/net/Http.h"

#include <curl/curl.h>

namespace glimmet {

/// What curl's own code leaves open.
struct TransferTrace {
    const char *errorText = ""; ///< curl's, in English
    bool usesProxy = false;
    bool hasConnected = false; ///< to the server
};

/// Why the transfer over `handle` failed with `code`, which is not CURLE_OK.
TransportFailure transportFailure(CURL *handle, CURLcode code, const TransferTrace &trace);

} // namespace glimmet
