#include "platform/keys/SecretPrompts.h"

#include "platform/bus/BusCalls.h"
#include "platform/keys/SecretServiceLink.h"
#include "platform/keys/SecretServiceTypes.h"

namespace glimmet {

using namespace SecretServiceNames;

SecretPrompts::SecretPrompts(SecretServiceLink &link, QObject *parent)
    : QObject(parent)
    , m_link(link)
{
    connect(&link, &SecretServiceLink::promptCompleted, this, &SecretPrompts::end);
    connect(&link, &SecretServiceLink::lost, this, &SecretPrompts::forgetAll);
}

void SecretPrompts::start(const QDBusObjectPath &prompt)
{
    const bool isFirst = m_up.isEmpty();
    const QString path = prompt.path();
    m_up.insert(path);
    QDBusMessage message = m_link.method(path, promptInterface, QStringLiteral("Prompt"));
    const quint32 window = m_parentWindow();
    message << (window == 0 ? QString() : QString::number(window));
    const auto take = [this, path](const QDBusPendingCall &answer) {
        if (answer.isError())
            end(path, true);
    };
    callLater(m_link.connection(), message, this, take, withoutLimit);
    if (isFirst)
        emit isAnyUpChanged();
}

void SecretPrompts::end(const QString &prompt, bool isDismissed)
{
    if (!m_up.remove(prompt))
        return;
    if (isDismissed)
        emit dismissed();
    if (m_up.isEmpty())
        emit isAnyUpChanged();
}

void SecretPrompts::forgetAll()
{
    if (m_up.isEmpty())
        return;
    m_up.clear();
    emit isAnyUpChanged();
}

} // namespace glimmet
