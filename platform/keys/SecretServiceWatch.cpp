#include "platform/keys/SecretServiceWatch.h"

#include "platform/bus/BusCalls.h"
#include "platform/bus/SessionBus.h"
#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceTypes.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>
#include <utility>

namespace glimmet {
namespace {

using namespace SecretServiceNames;
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds shortestPause = 1s;
constexpr std::chrono::milliseconds longestPause = 1min;
constexpr std::chrono::milliseconds busPatience = 300ms;

} // namespace

SecretServiceWatch::SecretServiceWatch(
    SecretServiceLink &link, const SessionBus &bus, Timers &timers, SecretAttributes ours, QObject *parent)
    : QObject(parent)
    , m_link(link)
    , m_ours(std::move(ours))
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
    ask(defaultCollectionQuestion(service), [this](const QVariantList &answer) {
        const auto collection = answer.value(0).value<QDBusObjectPath>();
        if (isNone(collection))
            emit closed();
        else
            askForLock(collection);
    });
}

void SecretServiceWatch::askForLock(const QDBusObjectPath &collection)
{
    ask(lockQuestion(service, collection, collectionInterface), [this](const QVariantList &answer) {
        const bool isLocked = answer.value(0).value<QDBusVariant>().variant().toBool();
        if (isLocked)
            emit closed();
        else
            askForItems();
    });
}

/// Some services keep every item locked until the user has allowed the program to have it.
void SecretServiceWatch::askForItems()
{
    ask(itemsQuestion(service, m_ours), [this](const QVariantList &answer) {
        const auto count = [&](int index) {
            return qdbus_cast<QList<QDBusObjectPath>>(answer.value(index)).size();
        };
        const bool areAllLocked = count(0) == 0 && count(1) > 0;
        if (!areAllLocked)
            report();
    });
}

void SecretServiceWatch::ask(const QDBusMessage &question, std::function<void(const QVariantList &)> use)
{
    // A service that hangs answers once it goes on. A later question takes the place of one without answer.
    delete m_question;
    const auto take = [this, use = std::move(use)](const QDBusPendingCall &answered) {
        m_question.clear();
        m_isHanging = false;
        const QDBusMessage answer = answered.reply();
        if (answer.type() == QDBusMessage::ReplyMessage)
            use(answer.arguments());
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
