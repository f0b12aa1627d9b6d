#include "platform/net/HttpConnections.h"

#include "platform/EndLater.h"
#include "platform/Fatal.h"

#include <QSocketNotifier>

#include <algorithm>

namespace glimmet {
namespace {

constexpr size_t mostConnections = 6;
constexpr std::chrono::milliseconds mostBetweenLooks = std::chrono::seconds(1);
/// The two clocks that tell how long the machine slept are not read at the same moment.
constexpr std::chrono::milliseconds leastSleep = std::chrono::seconds(1);

CURLM *multiHandle()
{
    static const CURLcode isReady = curl_global_init(CURL_GLOBAL_DEFAULT);
    CURLM *multi = isReady == CURLE_OK ? curl_multi_init() : nullptr;
    if (multi == nullptr)
        fatal("out of memory");
    return multi;
}

CURL *easyHandle()
{
    CURL *handle = curl_easy_init();
    if (handle == nullptr)
        fatal("out of memory");
    return handle;
}

void letGo(std::unique_ptr<QSocketNotifier> &notifier)
{
    if (notifier)
        notifier->setEnabled(false);
    endLater(notifier);
}

} // namespace

HttpConnections::HttpConnections(HttpSettings settings, std::shared_ptr<size_t> underWay)
    : m_settings(std::move(settings))
    , m_underWay(std::move(underWay))
    , m_asleepBefore(m_settings.timeAsleep())
    , m_multi(multiHandle())
{
    curl_multi_setopt(m_multi, CURLMOPT_SOCKETFUNCTION, watchSocket);
    curl_multi_setopt(m_multi, CURLMOPT_SOCKETDATA, this);
    curl_multi_setopt(m_multi, CURLMOPT_TIMERFUNCTION, setTimer);
    curl_multi_setopt(m_multi, CURLMOPT_TIMERDATA, this);
    curl_multi_setopt(m_multi, CURLMOPT_MAX_HOST_CONNECTIONS, long(mostConnections));
    curl_multi_setopt(m_multi, CURLMOPT_MAXCONNECTS, long(mostConnections));
    m_curlTimer.setSingleShot(true);
    m_curlTimer.setTimerType(Qt::PreciseTimer);
    connect(&m_curlTimer, &QTimer::timeout, this, [this] { act(CURL_SOCKET_TIMEOUT, 0); });
    m_timeCheck.setSingleShot(true);
    connect(&m_timeCheck, &QTimer::timeout, this, &HttpConnections::checkTimes);
    m_restTimer.setSingleShot(true);
    connect(&m_restTimer, &QTimer::timeout, this, &HttpConnections::ended);
}

HttpConnections::~HttpConnections()
{
    // No notifier is in the middle of its signal here, and an event loop that is over would delete none
    // later.
    curl_multi_setopt(m_multi, CURLMOPT_SOCKETFUNCTION, nullptr);
    for (const Running &running : m_running) {
        curl_multi_remove_handle(m_multi, running.handle);
        m_spareHandles.push_back(running.handle);
    }
    for (CURL *handle : m_spareHandles)
        curl_easy_cleanup(handle);
    curl_multi_cleanup(m_multi);
}

void HttpConnections::add(std::unique_ptr<HttpExchange> exchange)
{
    m_restTimer.stop();
    m_waiting.push_back(std::move(exchange));
    startNext();
}

void HttpConnections::setProxy(const QByteArray &proxy)
{
    m_proxy = proxy;
    startNext();
}

std::deque<std::unique_ptr<HttpExchange>> HttpConnections::retire()
{
    m_isRetired = true;
    return std::exchange(m_waiting, {});
}

bool HttpConnections::haveSlept() const
{
    return m_settings.timeAsleep() - m_asleepBefore >= leastSleep;
}

void HttpConnections::startNext()
{
    while (m_proxy && !m_waiting.empty() && *m_underWay < mostConnections) {
        auto exchange = std::move(m_waiting.front());
        m_waiting.pop_front();
        ++*m_underWay;
        start(std::move(exchange), spareHandle());
    }
    checkTimesLater();
}

CURL *HttpConnections::spareHandle()
{
    if (m_spareHandles.empty())
        return easyHandle();
    CURL *handle = m_spareHandles.back();
    m_spareHandles.pop_back();
    return handle;
}

void HttpConnections::start(std::unique_ptr<HttpExchange> exchange, CURL *handle)
{
    exchange->prepare(handle, *m_proxy, m_openSockets, m_tls);
    m_running.push_back({ handle, std::move(exchange) });
    if (curl_multi_add_handle(m_multi, handle) != CURLM_OK)
        fatal("out of memory");
}

int HttpConnections::watchSocket(CURL *, curl_socket_t socket, int what, void *connections, void *)
{
    auto &self = *static_cast<HttpConnections *>(connections);
    if (what == CURL_POLL_REMOVE)
        self.unwatch(socket);
    else
        self.watch(socket, what);
    return 0;
}

int HttpConnections::setTimer(CURLM *, long milliseconds, void *connections)
{
    QTimer &timer = static_cast<HttpConnections *>(connections)->m_curlTimer;
    if (milliseconds < 0)
        timer.stop();
    else
        timer.start(std::chrono::milliseconds(milliseconds));
    return 0;
}

void HttpConnections::watch(curl_socket_t socket, int what)
{
    Watched &watched = m_watched[socket];
    const auto notify = [&](std::unique_ptr<QSocketNotifier> &notifier, QSocketNotifier::Type type, int event,
                            bool isWanted) {
        if (!notifier && isWanted) {
            notifier = std::make_unique<QSocketNotifier>(socket, type);
            connect(notifier.get(), &QSocketNotifier::activated, this,
                [this, socket, event] { act(socket, event); });
        }
        if (notifier)
            notifier->setEnabled(isWanted);
    };
    notify(watched.reading, QSocketNotifier::Read, CURL_CSELECT_IN, (what & CURL_POLL_IN) != 0);
    notify(watched.writing, QSocketNotifier::Write, CURL_CSELECT_OUT, (what & CURL_POLL_OUT) != 0);
}

void HttpConnections::unwatch(curl_socket_t socket)
{
    const auto found = m_watched.find(socket);
    if (found == m_watched.end())
        return;
    letGo(found->second.reading);
    letGo(found->second.writing);
    m_watched.erase(found);
}

void HttpConnections::act(curl_socket_t socket, int events)
{
    int running = 0;
    curl_multi_socket_action(m_multi, socket, events, &running);
    takeResults();
}

void HttpConnections::takeResults()
{
    int left = 0;
    bool isAnyOver = false;
    while (const CURLMsg *message = curl_multi_info_read(m_multi, &left)) {
        conclude(message->easy_handle, message->data.result);
        isAnyOver = true;
    }
    if (!isAnyOver)
        return;
    startNext();
    rest();
}

void HttpConnections::conclude(CURL *handle, CURLcode code)
{
    const auto found = std::find_if(m_running.begin(), m_running.end(),
        [handle](const Running &running) { return running.handle == handle; });
    auto exchange = std::move(found->exchange);
    m_running.erase(found);
    const auto result = exchange->conclude(code);
    curl_multi_remove_handle(m_multi, handle);
    if (!result)
        return start(std::move(exchange), handle);
    curl_easy_reset(handle); // It knows the exchange, which goes now.
    m_spareHandles.push_back(handle);
    --*m_underWay;
    emit cameFree();
    exchange->finish(*result);
}

void HttpConnections::checkTimes()
{
    const Moment now = std::chrono::steady_clock::now();
    endWaiting(now);
    endOverdue(now);
    startNext();
    rest();
}

void HttpConnections::endWaiting(Moment now)
{
    while (!m_waiting.empty() && m_waiting.front()->endOfWaiting() <= now) {
        const auto exchange = std::move(m_waiting.front());
        m_waiting.pop_front();
        exchange->finish(TransportFailure::TimedOut);
    }
}

void HttpConnections::endOverdue(Moment now)
{
    std::vector<CURL *> late;
    std::vector<CURL *> flooded;
    bool isAnySilent = false;
    for (const auto &[handle, exchange] : m_running) {
        if (std::min(exchange->endOfSilence(), exchange->endOfAll()) <= now)
            late.push_back(handle);
        else if (exchange->isFlooded())
            flooded.push_back(handle);
        isAnySilent |= exchange->wasSent() && exchange->endOfSilence() <= now;
    }
    if (isAnySilent) // Before the results: who hears of one may ask again.
        emit fellSilent();
    for (CURL *handle : late)
        conclude(handle, CURLE_OPERATION_TIMEDOUT);
    for (CURL *handle : flooded)
        conclude(handle, CURLE_WEIRD_SERVER_REPLY);
}

void HttpConnections::checkTimesLater()
{
    if (isAtRest())
        return m_timeCheck.stop();
    // Progress puts off an end: that is noticed at the time at which it would have come. What is under way is
    // looked at more often, since a flood need not be progress.
    const auto left = std::max(nextEnd() - std::chrono::steady_clock::now(), Moment::duration::zero());
    const auto next = std::chrono::ceil<std::chrono::milliseconds>(left);
    m_timeCheck.start(m_running.empty() ? next : std::min(next, mostBetweenLooks));
}

void HttpConnections::rest()
{
    if (!isAtRest())
        return;
    m_restTimer.start(m_settings.connectionsKept);
    emit cameToRest();
    if (m_isRetired)
        emit ended();
}

HttpConnections::Moment HttpConnections::nextEnd() const
{
    Moment next = Moment::max();
    if (!m_waiting.empty())
        next = m_waiting.front()->endOfWaiting();
    for (const Running &running : m_running)
        next = std::min({ next, running.exchange->endOfSilence(), running.exchange->endOfAll() });
    return next;
}

} // namespace glimmet
