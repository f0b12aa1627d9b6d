#include "platform/net/ProxySettings.h"

#include "platform/net/ProxyLookup.h"

namespace glimmet {
namespace {

constexpr std::chrono::milliseconds patience = std::chrono::milliseconds(100);

} // namespace

ProxySettings::ProxySettings(QObject *parent)
    : QObject(parent)
    , m_thread(new QThread)
{
    m_thread->setObjectName(QStringLiteral("proxies"));
}

ProxySettings::~ProxySettings()
{
    m_thread->quit();
    if (!m_thread->isRunning() || m_thread->wait(patience))
        delete m_thread;
}

ProxyLookup &ProxySettings::lookup()
{
    if (m_lookup == nullptr) {
        m_lookup = new ProxyLookup;
        m_lookup->moveToThread(m_thread);
        connect(m_thread, &QThread::finished, m_lookup, &QObject::deleteLater);
        connect(m_lookup, &ProxyLookup::found, this, &ProxySettings::answer);
        m_thread->start();
    }
    return *m_lookup;
}

void ProxySettings::find(
    const QByteArray &address, QObject *receiver, std::function<void(const QByteArray &)> found)
{
    const int number = ++m_lastNumber;
    m_questions.emplace(number, Question{ receiver, std::move(found) });
    QMetaObject::invokeMethod(
        &lookup(), [&lookup = lookup(), number, address] { lookup.find(number, address); },
        Qt::QueuedConnection);
}

void ProxySettings::answer(int number, const QByteArray &proxy)
{
    const auto question = m_questions.extract(number);
    if (question.mapped().receiver)
        question.mapped().found(proxy);
}

} // namespace glimmet
