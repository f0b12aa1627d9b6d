// Offers a long history of charges over HTTPS, so that clients can be measured beside each other. Every page
// is made before the first is asked for, and packed where that is wanted: an answer costs its encryption
// alone.
//
//     glimmet_history_server CERTIFICATE.pem KEY PAGES packed|plain
//
// Says where it listens and the exact total in cents. A request for the first page begins the history anew; a
// page out of order is answered with 500. As the 10th, 100th and 1,000th is asked for, the server says the
// number and answers when a line came on its standard input: until then nothing moves in the client.

#include "tests/support/Gzip.h"

#include <arpa/inet.h>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <openssl/ssl.h>
#include <string>
#include <string_view>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr long chargesOnAPage = 100;

struct Charge {
    long number;

    /// Cents: uneven, so that a page that is left out or read twice changes the sum.
    long amount() const { return 100 + number * 7919 % 99991; }
    bool succeeded() const { return number % 50 != 7; }
    bool inDollars() const { return number % 40 != 3; }
    bool counts() const { return succeeded() && inDollars(); }
};

/// What was sold, as long and as packable as such lists are.
std::string descriptionOf(long charge)
{
    constexpr const char *wares[] = { "linen shirt", "enamel mug", "desk lamp", "wool blanket",
        "field notebook", "canvas bag", "tea towel", "oak coaster", "paper lantern", "brass hook",
        "cork board", "ink bottle" };
    std::string text;
    for (unsigned long dice = static_cast<unsigned long>(charge) + 1; text.size() < 1600;) {
        dice = dice * 6364136223846793005UL + 1442695040888963407UL;
        text += std::to_string(1 + (dice >> 60)) + " x " + wares[(dice >> 33) % 12] + ", article "
            + std::to_string(4000 + (dice >> 45) % 900) + "; ";
    }
    return text;
}

std::string chargeText(const Charge &charge)
{
    const std::string id = std::to_string(charge.number);
    return R"({"id":"ch_)" + id + R"(","object":"charge","amount":)" + std::to_string(charge.amount())
        + R"(,"amount_captured":2000,"amount_refunded":0,"application":null,"balance_transaction":"txn_1MiN3gLkdIwHu7ixxapQrznl",)"
          R"("billing_details":{"address":{"city":null,"country":"US","line1":null,"postal_code":"42424","state":null},)"
          R"("email":"jenny.rosen@example.com","name":"Jenny Rosen","phone":null},"calculated_statement_descriptor":)"
          R"("EXAMPLE SHOP","captured":true,"created":)"
        + std::to_string(1795000000 - charge.number * 60) + R"(,"currency":")"
        + (charge.inDollars() ? "usd" : "eur") + R"(","customer":"cus_NffrFeUfNV2Hib","description":")"
        + descriptionOf(charge.number) + R"(","metadata":{"order":")" + id
        + R"("},"outcome":{"network_status":"approved_by_network","reason":null,)"
          R"("risk_level":"normal","risk_score":32,"seller_message":"Payment complete.","type":"authorized"},"paid":true,)"
          R"("payment_method_details":{"card":{"brand":"visa","checks":{"cvc_check":null},"country":"US","exp_month":3,)"
          R"("exp_year":2029,"fingerprint":"mToisGZ01V71BCos","funding":"credit","last4":"4242","network":"visa"},)"
          R"("type":"card"},"receipt_url":"https://pay.example.com/receipts/payment/CAcaFwoVYWNjdF8xTTJKVGtMa2RJ","refunded":false,)"
          R"("status":")"
        + (charge.succeeded() ? "succeeded" : "failed") + R"("})";
}

std::string pageText(long page, long pages)
{
    std::string charges;
    for (long i = 0; i < chargesOnAPage; ++i)
        charges += (i > 0 ? "," : "") + chargeText({ page * chargesOnAPage + i });
    return std::string(R"({"object":"list","url":"/v1/charges","has_more":)")
        + (page + 1 < pages ? "true" : "false") + R"(,"data":[)" + charges + "]}";
}

std::string answer(const std::string &body, const char *encoding)
{
    return std::string("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\n") + encoding
        + "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
}

std::vector<std::string> history(long pages, bool packed)
{
    std::vector<std::string> answers;
    for (long page = 0; page < pages; ++page) {
        const std::string text = pageText(page, pages);
        answers.push_back(packed ? answer(glimmet::gzipped(QByteArray::fromStdString(text)).toStdString(),
                                       "Content-Encoding: gzip\r\n")
                                 : answer(text, ""));
    }
    return answers;
}

long exactTotal(long pages)
{
    long total = 0;
    for (Charge charge{ 0 }; charge.number < pages * chargesOnAPage; ++charge.number)
        total += charge.counts() ? charge.amount() : 0;
    return total;
}

/// The page that a request asks for, by the number of the charge that it begins behind.
long pageOf(std::string_view request)
{
    constexpr std::string_view cursor = "starting_after=ch_";
    const size_t at = request.find(cursor);
    if (at == std::string_view::npos)
        return 0;
    return (std::atol(std::string(request.substr(at + cursor.size(), 18)).c_str()) + 1) / chargesOnAPage;
}

void waitToBeLookedAt(long page)
{
    std::printf("%ld\n", page);
    std::fflush(stdout);
    while (std::getchar() != '\n' && !std::feof(stdin)) {}
}

/// One client after the other, each over as many connections as it likes.
class History {
public:
    History(long pages, bool packed)
        : m_answers(history(pages, packed))
    {
    }

    const std::string &answerTo(std::string_view request)
    {
        const long page = pageOf(request);
        if (page == 0)
            m_next = 0;
        if (page != m_next || page >= static_cast<long>(m_answers.size()))
            return m_refusal;
        const long number = ++m_next;
        if (number == 10 || number == 100 || number == 1000)
            waitToBeLookedAt(number);
        return m_answers[static_cast<size_t>(page)];
    }

private:
    const std::vector<std::string> m_answers;
    const std::string m_refusal = "HTTP/1.1 500 Internal Server Error\r\nContent-Length: 0\r\n\r\n";
    long m_next = 0;
};

void serve(SSL *encrypted, History &history)
{
    std::string request;
    char bytes[4096];
    for (int size = 0; (size = SSL_read(encrypted, bytes, sizeof bytes)) > 0;) {
        request.append(bytes, static_cast<size_t>(size));
        if (!request.ends_with("\r\n\r\n"))
            continue;
        const std::string &reply = history.answerTo(request);
        if (SSL_write(encrypted, reply.data(), static_cast<int>(reply.size())) <= 0)
            return;
        request.clear();
    }
}

void serveConnection(SSL_CTX *encryption, int connection, History &history)
{
    const int atOnce = 1;
    setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &atOnce, sizeof atOnce);
    SSL *encrypted = SSL_new(encryption);
    SSL_set_fd(encrypted, connection);
    if (SSL_accept(encrypted) == 1)
        serve(encrypted, history);
    SSL_free(encrypted);
    close(connection);
}

/// At a free port of 127.0.0.1, which is put into `port`.
int listeningSocket(int &port)
{
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto *generic = reinterpret_cast<sockaddr *>(&address);
    if (bind(listener, generic, size) != 0 || listen(listener, 16) != 0
        || getsockname(listener, generic, &size) != 0) {
        std::perror("no port to listen at");
        std::exit(1);
    }
    port = ntohs(address.sin_port);
    return listener;
}

} // namespace

int main(int argc, char *argv[])
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGPIPE, SIG_IGN);
    SSL_CTX *encryption = SSL_CTX_new(TLS_server_method());
    if (argc != 5 || SSL_CTX_use_certificate_chain_file(encryption, argv[1]) != 1
        || SSL_CTX_use_PrivateKey_file(encryption, argv[2], SSL_FILETYPE_PEM) != 1) {
        std::fputs("glimmet_history_server CERTIFICATE.pem KEY PAGES packed|plain\n", stderr);
        return 2;
    }
    const long pages = std::atol(argv[3]);
    History history(pages, std::string_view(argv[4]) == "packed");
    int port = 0;
    const int listener = listeningSocket(port);
    std::printf("https://127.0.0.1:%d %ld\n", port, exactTotal(pages));
    std::fflush(stdout);
    while (true) {
        const int connection = accept(listener, nullptr, nullptr);
        std::thread(serveConnection, encryption, connection, std::ref(history)).detach();
    }
}
