#include "revenue/RevenueReport.h"

#include "platform/Publish.h"
#include "platform/RepeatingTimer.h"
#include "platform/Text.h"
#include "revenue/RevenuePlatforms.h"

#include <QPointer>

#include <utility>

namespace glimmet {

using namespace std::chrono_literals;

RevenueReport::RevenueReport(RevenueReportWorld world, QObject *parent)
    : QObject(parent)
    , m_world(std::move(world))
    , m_credentials(m_world.keys)
{
    for (const RevenuePlatform &platform : revenuePlatforms()) {
        for (const CredentialField &field : platform.credentials)
            m_values.emplace(field.key, field.standIn);
    }
}

RevenueReport::~RevenueReport() = default;

void RevenueReport::setProvider(RevenueProvider provider)
{
    publish(*this, m_provider, provider, &RevenueReport::providerChanged);
}

void RevenueReport::setMetric(RevenueMetric metric)
{
    publish(*this, m_metric, metric, &RevenueReport::metricChanged);
    fetchIfOnShow();
}

void RevenueReport::setPeriod(RevenueMode period)
{
    publish(*this, m_period, period, &RevenueReport::periodChanged);
    fetchIfOnShow();
}

void RevenueReport::setDodoCurrency(const QString &currency)
{
    publish(*this, m_dodoCurrency, currency, &RevenueReport::dodoCurrencyChanged);
    fetchIfOnShow();
}

void RevenueReport::setCredential(KeychainKey key, const QString &value)
{
    give(key, value);
    m_credentials.save(value, key);
    fetchIfOnShow();
}

void RevenueReport::loadCredentials()
{
    for (const auto &[key, account] : rawValues<KeychainKey>)
        takeOver(key, m_credentials.load(key));
    if (m_world.keys != nullptr)
        connect(m_world.keys, &KeyStore::becameReadable, this, &RevenueReport::settleCredentials);
}

void RevenueReport::settleCredentials()
{
    bool areNew = false;
    for (const KeychainKey key : m_credentials.unsettled()) {
        std::optional<QString> loaded;
        if (!m_credentials.settle(key, credential(key), loaded))
            continue;
        takeOver(key, loaded);
        areNew = true;
    }
    // Once all are there: a fetch with a new key and the old currency could be answered last.
    if (areNew)
        fetchIfOnShow();
}

void RevenueReport::takeOver(KeychainKey key, const std::optional<QString> &loaded)
{
    const QString value = loaded.value_or(credentialField(key).standIn);
    give(key, value);
    m_credentials.writeBack(value, key);
}

void RevenueReport::give(KeychainKey key, const QString &value)
{
    QString &held = m_values.at(key);
    if (held == value)
        return;
    held = value;
    emit credentialChanged(key);
}

RevenueQuery RevenueReport::query() const
{
    RevenueQuery query;
    query.provider = m_provider;
    query.period = m_period;
    query.metric = m_metric;
    for (const CredentialField &field : revenuePlatform(m_provider).credentials) {
        if (field.role == CredentialRole::Key)
            query.apiKey = ApiKey(credential(field.key));
        else if (field.role == CredentialRole::ProjectID)
            query.projectID = credential(field.key);
    }
    query.currency = currency();
    return query;
}

/// The currency of the question, in the letters that the platform wants; empty where it is not asked in one.
QString RevenueReport::currency() const
{
    const RevenuePlatform &platform = revenuePlatform(m_provider);
    QString entered = m_provider == RevenueProvider::Dodo ? m_dodoCurrency : QString();
    for (const CredentialField &field : platform.credentials) {
        if (field.role == CredentialRole::Currency)
            entered = credential(field.key);
    }
    const QString code = trimmedBlanks(entered).toUpper();
    switch (platform.currency) {
    case RevenuePlatform::CurrencyCode::None:
        return {};
    case RevenuePlatform::CurrencyCode::UpperCase:
        return code;
    case RevenuePlatform::CurrencyCode::LowerCase:
        return code.toLower();
    }
    Q_UNREACHABLE();
}

void RevenueReport::fetch()
{
    if (m_world.fetcher == nullptr)
        return;
    publish(*this, m_isFetching, true, &RevenueReport::isFetchingChanged);
    publish(*this, m_lastError, std::nullopt, &RevenueReport::lastErrorChanged);
    const RevenueQuery asked = query();
    const bool isSaidBefore =
        revenuePlatform(asked.provider).missingInput == RevenuePlatform::MissingInput::SaidBefore;
    if (const QString missing = missingInput(asked); isSaidBefore && !missing.isEmpty())
        return handleResult(missing);
    m_world.fetcher->fetch(asked, [report = QPointer(this)](const QString &text) {
        if (report)
            report->handleResult(text);
    });
}

void RevenueReport::fetchIfOnShow()
{
    if (m_world.isOnShow())
        fetch();
}

void RevenueReport::startTimer()
{
    fetch();
    m_timer.reset();
    m_timer = m_world.timers.repeating(300s, [this] {
        settleCredentials();
        fetch();
    });
}

void RevenueReport::stopTimer()
{
    m_timer.reset();
}

void RevenueReport::handleResult(const QString &text)
{
    publish(*this, m_isFetching, false, &RevenueReport::isFetchingChanged);
    publish(*this, m_label, text, &RevenueReport::labelChanged);
    if (text.startsWith(u'⚠'))
        publish(*this, m_lastError, text, &RevenueReport::lastErrorChanged);
}

} // namespace glimmet
