// Reads a long history of charges by the least that can do it: one libcurl handle, one buffer, simdjson on
// demand. It is what the program's client is measured against, and checks nothing that it does not need.
//
//     glimmet_history_by_loop AUTHORITY.pem ORIGIN

#include <curl/curl.h>
#include <simdjson.h>

#include <cstdio>
#include <string>

namespace {

size_t append(const char *bytes, size_t size, size_t count, void *body)
{
    static_cast<std::string *>(body)->append(bytes, size * count);
    return size * count;
}

/// Adds up the page's charges that count, and puts into `cursor` where the next page begins, nothing behind
/// the last.
int64_t sumOf(simdjson::ondemand::document page, std::string &cursor)
{
    const bool more = page["has_more"];
    int64_t sum = 0;
    for (simdjson::ondemand::object charge : page["data"]) {
        cursor = std::string_view(charge["id"]);
        const int64_t amount = charge["amount"];
        const bool inDollars = std::string_view(charge["currency"]) == "usd";
        if (inDollars && std::string_view(charge["status"]) == "succeeded")
            sum += amount;
    }
    if (!more)
        cursor.clear();
    return sum;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3)
        return 2;
    curl_global_init(CURL_GLOBAL_DEFAULT);
    CURL *curl = curl_easy_init();
    curl_slist *headers = curl_slist_append(nullptr, "Authorization: Bearer sk_live_1");
    std::string body;
    curl_easy_setopt(curl, CURLOPT_CAINFO, argv[1]);
    curl_easy_setopt(curl, CURLOPT_HTTPHEADER, headers);
    curl_easy_setopt(curl, CURLOPT_ACCEPT_ENCODING, "gzip");
    curl_easy_setopt(curl, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, append);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &body);

    simdjson::ondemand::parser parser;
    const std::string address = std::string(argv[2]) + "/v1/charges?limit=100";
    std::string cursor;
    int64_t total = 0;
    do {
        const std::string page = cursor.empty() ? address : address + "&starting_after=" + cursor;
        curl_easy_setopt(curl, CURLOPT_URL, page.c_str());
        body.clear();
        if (const CURLcode failure = curl_easy_perform(curl); failure != CURLE_OK) {
            std::fprintf(stderr, "%s\n", curl_easy_strerror(failure));
            return 1;
        }
        body.reserve(body.size() + simdjson::SIMDJSON_PADDING);
        total += sumOf(parser.iterate(body), cursor);
    } while (!cursor.empty());
    std::printf("%lld\n", static_cast<long long>(total));
    curl_slist_free_all(headers);
    curl_easy_cleanup(curl);
    return 0;
}
