#include "revenue/RevenueReport.h"

#include "platform/Clock.h"
#include "platform/Publish.h"
#include "platform/RepeatingTimer.h"
#include "platform/Text.h"
#include "revenue/RevenuePlatforms.h"

#include <QPointer>

#include <utility>

namespace glimmet {

using namespace std::chrono_literals;

namespace {

constexpr std::chrono::seconds refreshInterval = 300s;
/// The store's dialog takes the keyboard: amid a key it would get the rest of it.
constexpr std::chrono::milliseconds typingPause = 1200ms;

bool isError(const QString &text)
{
    return text.startsWith(u'⚠');
}

} // namespace

RevenueReport::RevenueReport(RevenueReportWorld world, QObject *parent)
    : QObject(parent)
    , m_world(std::move(world))
    , m_credentials(m_world.keys)
    , m_answeredAt(m_world.clock.now())
    , m_retries(m_world.timers, [this] { tryAgain(); })
    , m_typingPause(m_world.timers, typingPause, [this] { askToSave(); })
{
    for (const RevenuePlatform &platform : revenuePlatforms()) {
        for (const CredentialField &field : platform.credentials) {
            m_values.emplace(field.key, ApiKey(field.standIn));
            m_statuses.emplace(field.key, m_credentials.status(ApiKey(field.standIn), field.key));
        }
    }
}

RevenueReport::~RevenueReport()
{
    for (const auto &[key, value] : m_values)
        m_credentials.finish(key, value);
}

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
    const ApiKey chosen(value);
    give(key, chosen);
    if (m_credentials.save(chosen, key)) {
        m_toAskFor.insert(key);
        m_typingPause.start();
    } else {
        m_toAskFor.erase(key);
    }
    publishStatus(key);
    fetchIfOnShow();
}

void RevenueReport::loadCredentials()
{
    for (const auto &[key, account] : rawValues<KeychainKey>)
        takeOver(key, m_credentials.load(key));
    if (m_world.keys == nullptr)
        return;
    connect(m_world.keys, &KeyStore::refused, this, [this] { m_credentials.noteRefusal(); });
    connect(m_world.keys, &KeyStore::becameReadable, this, [this] {
        settleCredentials();
        m_credentials.noteOpening();
    });
}

void RevenueReport::beginEditing()
{
    settleUnanswered();
    m_credentials.beginEditing();
}

void RevenueReport::endEditing()
{
    if (!m_typingPause.isRunning())
        return;
    m_typingPause.stop();
    askToSave();
}

void RevenueReport::askToSave()
{
    for (const KeychainKey key : std::exchange(m_toAskFor, {})) {
        m_credentials.askToSave(m_values.at(key), key);
        publishStatus(key);
    }
}

void RevenueReport::askToUnlock(KeyConsent::Act act)
{
    settleUnanswered();
    m_credentials.askToUnlock(act);
}

void RevenueReport::settleUnanswered()
{
    if (m_credentials.areAnyUnanswered())
        settleCredentials();
}

bool RevenueReport::settle()
{
    bool areNew = false;
    for (const KeychainKey key : m_credentials.unsettled()) {
        std::optional<ApiKey> loaded;
        const ApiKey held = m_values.at(key);
        if (m_credentials.settle(key, held, loaded))
            takeOver(key, loaded);
        else
            publishStatus(key);
        areNew = areNew || m_values.at(key) != held;
    }
    return areNew;
}

void RevenueReport::settleCredentials()
{
    // Once all are there: a fetch with a new key and the old currency could be answered last.
    if (settle())
        fetchIfOnShow();
}

void RevenueReport::takeOver(KeychainKey key, const std::optional<ApiKey> &loaded)
{
    const ApiKey value = loaded.value_or(ApiKey(credentialField(key).standIn));
    give(key, value);
    m_credentials.writeBack(value, key);
    publishStatus(key);
}

void RevenueReport::publishStatus(KeychainKey key)
{
    const KeyStatus status = m_credentials.status(m_values.at(key), key);
    if (std::exchange(m_statuses.at(key), status) != status)
        emit credentialStatusChanged(key);
}

void RevenueReport::give(KeychainKey key, const ApiKey &value)
{
    ApiKey &held = m_values.at(key);
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
            query.apiKey = m_values.at(field.key);
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
    QString code = trimmedBlanks(entered).toUpper();
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
    ask(WithoutNetwork::TextTellsOfIt);
}

void RevenueReport::ask(WithoutNetwork withoutNetwork)
{
    if (m_world.fetcher == nullptr)
        return;
    publish(*this, m_isFetching, true, &RevenueReport::isFetchingChanged);
    publish(*this, m_lastError, std::nullopt, &RevenueReport::lastErrorChanged);
    const Asked asked{ m_latest.begin(), m_provider, withoutNetwork };
    const RevenueQuery query = this->query();
    const bool isSaidBefore =
        revenuePlatform(query.provider).missingInput == RevenuePlatform::MissingInput::SaidBefore;
    if (const QString missing = missingInput(query); isSaidBefore && !missing.isEmpty())
        return handleResult(missing);
    m_world.fetcher->fetch(query, [report = QPointer(this), asked](const RevenueResult &result) {
        if (report)
            report->take(result, asked);
    });
}

void RevenueReport::take(const RevenueResult &result, const Asked &asked)
{
    const bool isOld = !m_latest.isLatest(asked.request);
    m_latest.end(asked.request, result.lacksNetwork);
    const bool staysAsItIs = asked.withoutNetwork == WithoutNetwork::TextStays || isOld;
    if (result.lacksNetwork && m_retries.areAhead() && staysAsItIs)
        return show(m_label);
    show(result.text);
    note(result.text, asked.provider);
}

void RevenueReport::fetchIfOnShow()
{
    if (m_world.isOnShow())
        fetch();
}

void RevenueReport::startTimer()
{
    fetch();
    runTimer();
}

void RevenueReport::startAnew()
{
    settle();
    m_retries.start();
    ask(WithoutNetwork::TextStays);
    runTimer();
}

void RevenueReport::runTimer()
{
    m_timer.reset();
    m_timer = m_world.timers.repeating(refreshInterval, [this] {
        settleCredentials();
        fetch();
    });
}

void RevenueReport::tryAgain()
{
    if (m_latest.lackedNetwork())
        ask(WithoutNetwork::TextStays);
}

void RevenueReport::stopTimer()
{
    m_timer.reset();
    m_retries.stop();
}

void RevenueReport::handleResult(const QString &text)
{
    show(text);
    note(text, m_provider);
}

void RevenueReport::show(const QString &text)
{
    publish(*this, m_isFetching, false, &RevenueReport::isFetchingChanged);
    publish(*this, m_label, text, &RevenueReport::labelChanged);
    if (isError(text))
        publish(*this, m_lastError, text, &RevenueReport::lastErrorChanged);
}

void RevenueReport::note(const QString &text, RevenueProvider provider)
{
    m_answeredAt = m_world.clock.now();
    FetchProblems problems = m_problems;
    if (isError(text))
        problems.insert(provider, { text, m_answeredAt });
    else if (!namesMissingInput(text)) // To ask for a key mends nothing.
        problems.remove(provider);
    publish(*this, m_problems, problems, &RevenueReport::problemsChanged);
}

bool RevenueReport::isStale() const
{
    return isError(m_label) || isOlderThan(2 * refreshInterval, m_answeredAt, m_world.clock.now());
}

} // namespace glimmet
