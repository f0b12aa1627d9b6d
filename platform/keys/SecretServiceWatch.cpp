#include "platform/keys/SecretServiceWatch.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/SessionBus.h"
#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceTypes.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>

namespace glimmet {
namespace {

using namespace SecretServiceNames;
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds shortestPause = 1s;
constexpr std::chrono::milliseconds longestPause = 1min;
constexpr std::chrono::milliseconds busPatience = 300ms;

} // namespace

SecretServiceWatch::SecretServiceWatch(
    SecretServiceLink &link, const SessionBus &bus, Timers &timers, QObject *parent)
    : QObject(parent)
    , m_link(link)
    , m_pause(timers, shortestPause, [this] { look(); })
{
    connect(&link, &SecretServiceLink::changed, this, &SecretServiceWatch::look);
    connect(&bus, &SessionBus::connected, this, &SecretServiceWatch::look);
}

void SecretServiceWatch::noteFailure(Service state)
{
    m_isLooking = true;
    if (state == Service::Hangs)
        m_isHanging = true;
    if (!m_pause.isRunning())
        m_pause.start();
}

void SecretServiceWatch::noteSuccess()
{
    m_pause.setDelay(shortestPause);
    if (m_pause.isRunning())
        m_pause.start();
}

void SecretServiceWatch::look()
{
    if (m_isLooking && m_link.connectToBus(busPatience))
        askForCollection();
}

void SecretServiceWatch::askForCollection()
{
    ask(defaultCollectionQuestion(service), [this](const QVariant &answer) {
        const auto collection = answer.value<QDBusObjectPath>();
        if (!isNone(collection))
            askForLock(collection);
    });
}

void SecretServiceWatch::askForLock(const QDBusObjectPath &collection)
{
    ask(lockQuestion(service, collection), [this](const QVariant &answer) {
        const bool isLocked = answer.value<QDBusVariant>().variant().toBool();
        if (!isLocked)
            report();
    });
}

void SecretServiceWatch::ask(const QDBusMessage &question, std::function<void(const QVariant &)> use)
{
    // A service that hangs answers once it goes on. A later question takes the place of one without answer.
    delete m_question;
    const auto take = [this, use = std::move(use)](const QDBusPendingCall &answered) {
        m_question.clear();
        m_isHanging = false;
        const QDBusMessage answer = answered.reply();
        if (answer.type() == QDBusMessage::ReplyMessage)
            use(answer.arguments().value(0));
    };
    m_question = callLater(m_link.connection(), question, this, take, withoutLimit);
}

void SecretServiceWatch::report()
{
    m_isLooking = false;
    m_pause.stop();
    // What then fails in spite of it would else be tried every second.
    m_pause.setDelay(std::min(m_pause.delay() * 2, longestPause));
    emit readable();
}

} // namespace glimmet
