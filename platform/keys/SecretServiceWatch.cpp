#include "platform/keys/SecretServiceWatch.h"

#include "platform/bus/SessionBus.h"
#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceNames.h"

#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <limits>

namespace glimmet {
namespace {

using namespace SecretServiceNames;
using namespace std::chrono_literals;

constexpr std::chrono::milliseconds shortestPause = 1s;
constexpr std::chrono::milliseconds longestPause = 1min;
constexpr std::chrono::milliseconds busPatience = 300ms;
constexpr int withoutLimit = std::numeric_limits<int>::max();

} // namespace

SecretServiceWatch::SecretServiceWatch(SecretServiceLink &link, const SessionBus &bus, QObject *parent)
    : QObject(parent)
    , m_link(link)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(shortestPause);
    connect(&m_pause, &QTimer::timeout, this, &SecretServiceWatch::look);
    connect(&link, &SecretServiceLink::changed, this, &SecretServiceWatch::look);
    connect(&bus, &SessionBus::connected, this, &SecretServiceWatch::look);
}

void SecretServiceWatch::noteFailure(Service state)
{
    m_isLooking = true;
    if (state == Service::Hangs)
        m_isHanging = true;
    if (!m_pause.isActive())
        m_pause.start();
}

void SecretServiceWatch::noteSuccess()
{
    m_pause.setInterval(shortestPause);
}

void SecretServiceWatch::look()
{
    if (m_isLooking && m_link.connectToBus(busPatience))
        askForCollection();
}

void SecretServiceWatch::askForCollection()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, servicePath, serviceInterface, QStringLiteral("ReadAlias"));
    question << QStringLiteral("default");
    ask(question, [this](const QVariant &answer) {
        const QString collection = answer.value<QDBusObjectPath>().path();
        if (collection != noPath)
            askForLock(collection);
    });
}

void SecretServiceWatch::askForLock(const QString &collection)
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, collection, propertiesInterface, QStringLiteral("Get"));
    question << collectionInterface << QStringLiteral("Locked");
    ask(question, [this](const QVariant &answer) {
        const bool isLocked = answer.value<QDBusVariant>().variant().toBool();
        if (!isLocked)
            report();
    });
}

void SecretServiceWatch::ask(const QDBusMessage &question, std::function<void(const QVariant &)> use)
{
    // A service that hangs answers once it goes on. A later question takes the place of one without answer.
    delete m_question;
    m_question = new QDBusPendingCallWatcher(m_link.connection().asyncCall(question, withoutLimit), this);
    const auto take = [this, use = std::move(use)](QDBusPendingCallWatcher *answered) {
        answered->deleteLater();
        m_question.clear();
        m_isHanging = false;
        const QDBusMessage answer = answered->reply();
        if (answer.type() == QDBusMessage::ReplyMessage)
            use(answer.arguments().value(0));
    };
    connect(m_question, &QDBusPendingCallWatcher::finished, this, take);
}

void SecretServiceWatch::report()
{
    m_isLooking = false;
    m_pause.stop();
    // What then fails in spite of it would else be tried every second.
    m_pause.setInterval(std::min(m_pause.intervalAsDuration() * 2, longestPause));
    emit readable();
}

} // namespace glimmet
