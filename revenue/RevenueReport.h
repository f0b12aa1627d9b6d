#pragma once

#include "platform/Retries.h"
#include "platform/SingleShot.h"
#include "revenue/Credentials.h"
#include "revenue/FetchProblem.h"
#include "revenue/RevenueFetcher.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>

namespace glimmet {

class Clock;
class RepeatingTimer;
class Timers;

/// What the report needs of the world. All of it outlives the report.
struct RevenueReportWorld {
    const Clock &clock;
    Timers &timers;
    RevenueFetcher *fetcher = nullptr; ///< none: the text stays as it is
    KeyStore *keys = nullptr; ///< none: credentials live as long as the report
    std::function<bool()> isOnShow; ///< whether the figure is what is shown now
};

/// One figure of the user's business: which one, with which credentials it is asked for, and what it was
/// last. A new choice is asked for at once where the figure is on show. Main thread.
class RevenueReport final : public QObject {
    Q_OBJECT

public:
    explicit RevenueReport(RevenueReportWorld world, QObject *parent = nullptr);
    ~RevenueReport() override;

    RevenueProvider provider() const { return m_provider; }
    void setProvider(RevenueProvider provider);
    RevenueMetric metric() const { return m_metric; }
    void setMetric(RevenueMetric metric);
    RevenueMode period() const { return m_period; }
    void setPeriod(RevenueMode period);
    /// Dodo's, which is kept nowhere.
    QString dodoCurrency() const { return m_dodoCurrency; }
    void setDodoCurrency(const QString &currency);

    QString credential(KeychainKey key) const { return m_values.at(key).characters(); }
    /// What the user chose: it is saved, also where it is equal.
    void setCredential(KeychainKey key, const QString &value);
    /// What the key store has of it.
    KeyStatus credentialStatus(KeychainKey key) const { return m_statuses.at(key); }
    /// Takes over what the key store has, and goes on with what it cannot tell yet once it can be read.
    void loadCredentials();
    /// The user turns to a credential's field.
    void beginEditing();
    /// The user has left the field of a key: what has to be asked for it is asked now.
    void endEditing();
    /// Has the key store ask the user to open it, where it is locked and the user's act allows it.
    void askToUnlock(KeyConsent::Act act);

    /// The finished text of the last fetch.
    QString label() const { return m_label; }
    bool isFetching() const { return m_isFetching; }
    std::optional<QString> lastError() const { return m_lastError; }
    /// What stays of the errors until each platform's next success, also while it is asked again.
    FetchProblems problems() const { return m_problems; }
    /// Whether the text is an error, or was the answer to none of the last two fetches of the timer.
    bool isStale() const;
    /// Starts one fetch of the chosen figure.
    void fetch();
    /// Fetches now and every five minutes.
    void startTimer();
    /// The same after the machine slept, or as if it had: what the key store can tell by now is taken over
    /// first, and where the network is not there yet, the text stays while the fetch is tried again.
    void startAnew();
    void stopTimer();
    /// Takes the finished text of a fetch, as the chosen platform's.
    void handleResult(const QString &text);

signals:
    void providerChanged();
    void metricChanged();
    void periodChanged();
    void dodoCurrencyChanged();
    void credentialChanged(glimmet::KeychainKey key);
    void credentialStatusChanged(glimmet::KeychainKey key);
    void labelChanged();
    void isFetchingChanged();
    void lastErrorChanged();
    void problemsChanged();

private:
    /// What becomes of the text while there is no network but another try to come.
    enum class WithoutNetwork { TextTellsOfIt, TextStays };
    /// A fetch that is under way.
    struct Asked {
        qint64 request = 0;
        RevenueProvider provider{};
        WithoutNetwork withoutNetwork{};
    };

    void give(KeychainKey key, const ApiKey &value);
    /// Takes over what the key store has, which is written back, also where that is nothing.
    void takeOver(KeychainKey key, const std::optional<ApiKey> &loaded);
    /// Asks the key store once more for what it could not tell or take. Returns whether it told anything.
    bool settle();
    /// The same, and fetches with what is new.
    void settleCredentials();
    /// The same where the store was silent: what it says by now decides whether the user has to be asked.
    void settleUnanswered();
    void askToSave();
    void publishStatus(KeychainKey key);
    RevenueQuery query() const;
    QString currency() const;
    void fetchIfOnShow();
    void ask(WithoutNetwork withoutNetwork);
    void take(const RevenueResult &result, const Asked &asked);
    void show(const QString &text);
    void note(const QString &text, RevenueProvider provider);
    void runTimer();
    void tryAgain();

    RevenueReportWorld m_world;
    Credentials m_credentials;
    RevenueProvider m_provider = RevenueProvider::Polar;
    RevenueMetric m_metric = RevenueMetric::Revenue;
    RevenueMode m_period = RevenueMode::AllTime;
    QString m_dodoCurrency = QStringLiteral("USD");
    std::map<KeychainKey, ApiKey> m_values; ///< one for each credential
    std::map<KeychainKey, KeyStatus> m_statuses; ///< the same
    QString m_label = QStringLiteral("–");
    bool m_isFetching = false;
    std::optional<QString> m_lastError;
    FetchProblems m_problems;
    Instant m_answeredAt; ///< when the text was last told
    LatestRequest m_latest;
    std::unique_ptr<RepeatingTimer> m_timer;
    Retries m_retries;
    SingleShot m_typingPause;
    std::set<KeychainKey> m_toAskFor; ///< once the user has paused
};

} // namespace glimmet
