#pragma once

#include "core/Deadlines.h"
#include "core/Quotes.h"
#include "core/TickerMode.h"
#include "core/TickerWorld.h"
#include "platform/DateTimeText.h"
#include "prices/PriceList.h"
#include "revenue/RevenueReport.h"

#include <QHash>
#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

namespace glimmet {

class RepeatingTimer;

/// The one state object of the program: the display mode, every mode's options, and the line of text that the
/// menu bar shows. Main thread only.
///
/// Each published property has a change signal that fires when its value changes. What an assignment causes
/// (a list is saved, a rotation reset, a fetch started) happens on every assignment, also of an equal value:
/// an assignment is a request, and what the request means may have changed elsewhere (the file, the server).
///
/// The engine runs from construction to destruction: a tick just behind each full second of the clock moves
/// the rotations on and rebuilds `currentDisplay`, which is written nowhere else, so that a change shows
/// within one second. A tick that finds that the machine slept, or that its clock was set, fetches revenue
/// and prices.
///
/// It is the sum of its parts: quotes, deadlines, prices and revenue own their state and their rules, and
/// hear from here only what is on show.
class TickerViewModel : public QObject {
    Q_OBJECT
    Q_PROPERTY(glimmet::TickerModes::TickerMode mode READ mode WRITE setMode NOTIFY modeChanged)
    Q_PROPERTY(QString customText READ customText WRITE setCustomText NOTIFY customTextChanged)
    Q_PROPERTY(bool showSeconds READ showSeconds WRITE setShowSeconds NOTIFY showSecondsChanged)
    Q_PROPERTY(bool use24Hour READ use24Hour WRITE setUse24Hour NOTIFY use24HourChanged)
    Q_PROPERTY(glimmet::RevenueProviders::RevenueProvider revenueProvider READ revenueProvider WRITE
            setRevenueProvider NOTIFY revenueProviderChanged)
    Q_PROPERTY(glimmet::RevenueMetrics::RevenueMetric revenueMetric READ revenueMetric WRITE setRevenueMetric
            NOTIFY revenueMetricChanged)
    Q_PROPERTY(glimmet::RevenueModes::RevenueMode revenueMode READ revenueMode WRITE setRevenueMode NOTIFY
            revenueModeChanged)
    Q_PROPERTY(QString polarAPIKey READ polarAPIKey WRITE setPolarAPIKey NOTIFY polarAPIKeyChanged)
    Q_PROPERTY(QString revenueCatAPIKey READ revenueCatAPIKey WRITE setRevenueCatAPIKey NOTIFY
            revenueCatAPIKeyChanged)
    Q_PROPERTY(QString revenueCatProjectID READ revenueCatProjectID WRITE setRevenueCatProjectID NOTIFY
            revenueCatProjectIDChanged)
    Q_PROPERTY(QString dodoAPIKey READ dodoAPIKey WRITE setDodoAPIKey NOTIFY dodoAPIKeyChanged)
    Q_PROPERTY(QString dodoCurrency READ dodoCurrency WRITE setDodoCurrency NOTIFY dodoCurrencyChanged)
    Q_PROPERTY(QString stripeAPIKey READ stripeAPIKey WRITE setStripeAPIKey NOTIFY stripeAPIKeyChanged)
    Q_PROPERTY(
        QString stripeCurrency READ stripeCurrency WRITE setStripeCurrency NOTIFY stripeCurrencyChanged)
    Q_PROPERTY(QString lemonSqueezyAPIKey READ lemonSqueezyAPIKey WRITE setLemonSqueezyAPIKey NOTIFY
            lemonSqueezyAPIKeyChanged)
    Q_PROPERTY(QString revenueLabel READ revenueLabel NOTIFY revenueLabelChanged)
    Q_PROPERTY(bool isFetchingRevenue READ isFetchingRevenue NOTIFY isFetchingRevenueChanged)
    Q_PROPERTY(QString lastFetchError READ lastFetchErrorText NOTIFY lastFetchErrorChanged)
    Q_PROPERTY(glimmet::FetchProblems fetchProblems READ fetchProblems NOTIFY fetchProblemsChanged)
    Q_PROPERTY(
        QStringList cryptoSymbols READ cryptoSymbols WRITE setCryptoSymbols NOTIFY cryptoSymbolsChanged)
    Q_PROPERTY(qint64 cryptoRotateInterval READ cryptoRotateInterval WRITE setCryptoRotateInterval NOTIFY
            cryptoRotateIntervalChanged)
    Q_PROPERTY(QHash<QString, glimmet::CryptoPrice> cryptoPrices READ cryptoPrices NOTIFY cryptoPricesChanged)
    Q_PROPERTY(QHash<QString, glimmet::PriceStatus> cryptoPriceStatuses READ cryptoPriceStatuses NOTIFY
            cryptoPriceStatusesChanged)
    Q_PROPERTY(qint64 currentCryptoIndex READ currentCryptoIndex WRITE setCurrentCryptoIndex NOTIFY
            currentCryptoIndexChanged)
    Q_PROPERTY(QList<glimmet::Deadline> deadlines READ deadlines WRITE setDeadlines NOTIFY deadlinesChanged)
    Q_PROPERTY(QStringList customQuotes READ customQuotes WRITE setCustomQuotes NOTIFY customQuotesChanged)
    Q_PROPERTY(QStringList activeQuotes READ activeQuotes NOTIFY customQuotesChanged)
    Q_PROPERTY(qint64 quoteRotateInterval READ quoteRotateInterval WRITE setQuoteRotateInterval NOTIFY
            quoteRotateIntervalChanged)
    Q_PROPERTY(QString currentDisplay READ currentDisplay NOTIFY currentDisplayChanged)
    Q_PROPERTY(bool isDisplayStale READ isDisplayStale NOTIFY isDisplayStaleChanged)
    Q_PROPERTY(QString spokenDisplay READ spokenDisplay NOTIFY currentDisplayChanged)

public:
    /// Sets every default, loads what is stored and starts the engine.
    explicit TickerViewModel(const TickerWorld &world, QObject *parent = nullptr);
    ~TickerViewModel() override;

    /// Refreshes the text at once, fetches revenue and prices and (re)starts the timers.
    void start();
    /// Stops all three timers, and what is left of tries to find the network again.
    void stop();

    TickerMode mode() const { return m_mode; }
    void setMode(TickerMode mode);
    /// What a tap on a mode card does: sets the mode, also the one that is set, and asks anew for what it
    /// shows.
    Q_INVOKABLE void chooseMode(glimmet::TickerModes::TickerMode mode);

    /// The line for the menu bar, as the mode has it. It may hold line breaks; a host cleans what it cannot
    /// show.
    QString currentDisplay() const { return m_currentDisplay; }
    /// The same for a screen reader: the time without the seconds, which would never let it finish.
    QString spokenDisplay() const;

    /// Whether what the mode shows is an error of a fetch, or is older than two of its refreshes. Told by the
    /// tick that shows it, and at once where the mode changes, also while the line is still the mode's
    /// before.
    bool isDisplayStale() const { return m_isDisplayStale; }

    QString customText() const { return m_customText; }
    void setCustomText(const QString &text);
    bool showSeconds() const { return m_showSeconds; }
    void setShowSeconds(bool show);
    bool use24Hour() const { return m_use24Hour; }
    void setUse24Hour(bool use);

    QStringList customQuotes() const { return m_quotes.custom(); }
    void setCustomQuotes(const QStringList &quotes) { m_quotes.setCustom(quotes); }
    QStringList activeQuotes() const { return m_quotes.active(); }
    qint64 quoteRotateInterval() const { return m_quotes.rotateInterval(); }
    void setQuoteRotateInterval(qint64 seconds) { m_quotes.setRotateInterval(seconds); }
    Q_INVOKABLE void addQuote(const QString &text) { m_quotes.add(text); }
    Q_INVOKABLE static QString quoteIn(const QString &text) { return Quotes::quoteIn(text); }
    Q_INVOKABLE void replaceQuote(const QString &text, const QString &replacement)
    {
        m_quotes.replace(text, replacement);
    }
    Q_INVOKABLE void removeQuote(const QString &text) { m_quotes.remove(text); }
    Q_INVOKABLE void resetQuotes() { m_quotes.reset(); }

    QList<Deadline> deadlines() const { return m_deadlines.all(); }
    void setDeadlines(const QList<Deadline> &deadlines) { m_deadlines.setAll(deadlines); }
    QList<Deadline> upcomingDeadlines() const { return m_deadlines.upcoming(); }
    void addDeadline(const Deadline &deadline) { m_deadlines.add(deadline); }
    void addDeadline(const QString &title, Instant date) { m_deadlines.add(title, date); }
    void replaceDeadline(const QUuid &id, const QString &title, Instant date)
    {
        m_deadlines.replace(id, title, date);
    }
    void removeDeadline(const QUuid &id) { m_deadlines.remove(id); }
    /// The same by the identity's text.
    Q_INVOKABLE void removeDeadline(const QString &id) { m_deadlines.remove(QUuid(id)); }
    Q_INVOKABLE void clearDeadlines() { m_deadlines.clear(); }

    /// The current moment and the user's region, as the ticker itself sees them.
    Instant now() const;
    const UserRegion &region() const { return m_world.region; }

    QStringList cryptoSymbols() const { return m_prices.symbols(); }
    void setCryptoSymbols(const QStringList &symbols) { m_prices.setSymbols(symbols); }
    Q_INVOKABLE void addCryptoSymbol(const QString &text) { m_prices.add(text); }
    Q_INVOKABLE static QStringList symbolsIn(const QString &text) { return PriceList::symbolsIn(text); }
    Q_INVOKABLE void removeCryptoSymbol(const QString &symbol) { m_prices.remove(symbol); }
    qint64 cryptoRotateInterval() const { return m_prices.rotateInterval(); }
    void setCryptoRotateInterval(qint64 seconds) { m_prices.setRotateInterval(seconds); }
    QHash<QString, CryptoPrice> cryptoPrices() const { return m_prices.prices(); }
    /// Why a symbol gave no price lately, and when its last one came.
    QHash<QString, PriceStatus> cryptoPriceStatuses() const { return m_prices.statuses(); }
    qint64 currentCryptoIndex() const { return m_prices.currentIndex(); }
    void setCurrentCryptoIndex(qint64 index) { m_prices.setCurrentIndex(index); }
    Q_INVOKABLE void fetchAllCryptoPrices() { m_prices.fetchAll(); }
    void startCryptoPriceTimer() { m_prices.startTimer(); }

    RevenueProvider revenueProvider() const { return m_revenue.provider(); }
    void setRevenueProvider(RevenueProvider provider) { m_revenue.setProvider(provider); }
    /// What a tap on a platform does: chooses it, also the one that is chosen, and fetches.
    Q_INVOKABLE void chooseRevenueProvider(glimmet::RevenueProviders::RevenueProvider provider);
    RevenueMetric revenueMetric() const { return m_revenue.metric(); }
    void setRevenueMetric(RevenueMetric metric) { m_revenue.setMetric(metric); }
    RevenueMode revenueMode() const { return m_revenue.period(); }
    void setRevenueMode(RevenueMode period) { m_revenue.setPeriod(period); }
    /// The same for a period; in Revenue mode the choice itself fetches as well.
    Q_INVOKABLE void chooseRevenueMode(glimmet::RevenueModes::RevenueMode period);
    QString dodoCurrency() const { return m_revenue.dodoCurrency(); }
    void setDodoCurrency(const QString &currency) { m_revenue.setDodoCurrency(currency); }
    /// The same for a currency, as it is typed.
    Q_INVOKABLE void chooseDodoCurrency(const QString &currency);
    Q_INVOKABLE void chooseStripeCurrency(const QString &currency);
    /// Any credential; each of those that follow is one of them.
    QString credential(KeychainKey key) const { return m_revenue.credential(key); }
    void setCredential(KeychainKey key, const QString &value) { m_revenue.setCredential(key, value); }
    /// What the key store has of it.
    KeyStatus credentialStatus(KeychainKey key) const { return m_revenue.credentialStatus(key); }
    /// The user turns to a credential's field.
    Q_INVOKABLE void beginCredentialEditing() { m_revenue.beginEditing(); }
    /// The user has left it.
    Q_INVOKABLE void endCredentialEditing() { m_revenue.endEditing(); }
    /// The user asks for the key store to be opened, which shows a dialog of its own.
    Q_INVOKABLE void unlockKeys() { m_revenue.askToUnlock(KeyConsent::Act::AskingForIt); }
    QString polarAPIKey() const { return credential(KeychainKey::PolarAPIKey); }
    void setPolarAPIKey(const QString &key) { setCredential(KeychainKey::PolarAPIKey, key); }
    QString revenueCatAPIKey() const { return credential(KeychainKey::RevenueCatAPIKey); }
    void setRevenueCatAPIKey(const QString &key) { setCredential(KeychainKey::RevenueCatAPIKey, key); }
    QString revenueCatProjectID() const { return credential(KeychainKey::RevenueCatProjectID); }
    void setRevenueCatProjectID(const QString &id) { setCredential(KeychainKey::RevenueCatProjectID, id); }
    QString dodoAPIKey() const { return credential(KeychainKey::DodoAPIKey); }
    void setDodoAPIKey(const QString &key) { setCredential(KeychainKey::DodoAPIKey, key); }
    QString stripeAPIKey() const { return credential(KeychainKey::StripeAPIKey); }
    void setStripeAPIKey(const QString &key) { setCredential(KeychainKey::StripeAPIKey, key); }
    QString stripeCurrency() const { return credential(KeychainKey::StripeCurrency); }
    void setStripeCurrency(const QString &currency) { setCredential(KeychainKey::StripeCurrency, currency); }
    QString lemonSqueezyAPIKey() const { return credential(KeychainKey::LemonSqueezyAPIKey); }
    void setLemonSqueezyAPIKey(const QString &key) { setCredential(KeychainKey::LemonSqueezyAPIKey, key); }
    QString revenueLabel() const { return m_revenue.label(); }
    bool isFetchingRevenue() const { return m_revenue.isFetching(); }
    std::optional<QString> lastFetchError() const { return m_revenue.lastError(); }
    /// The same for QML; empty where there is none.
    QString lastFetchErrorText() const { return lastFetchError().value_or(QString()); }
    /// What `lastFetchError` was, beside it: it stays until the platform's next success.
    FetchProblems fetchProblems() const { return m_revenue.problems(); }
    Q_INVOKABLE void fetchRevenue() { m_revenue.fetch(); }
    void startRevenueTimer() { m_revenue.startTimer(); }
    void handleRevenueResult(const QString &text) { m_revenue.handleResult(text); }

signals:
    void modeChanged();
    void customTextChanged();
    void showSecondsChanged();
    void use24HourChanged();
    void revenueProviderChanged();
    void revenueMetricChanged();
    void revenueModeChanged();
    /// Any of those that follow.
    void credentialChanged(glimmet::KeychainKey key);
    void credentialStatusChanged(glimmet::KeychainKey key);
    void polarAPIKeyChanged();
    void revenueCatAPIKeyChanged();
    void revenueCatProjectIDChanged();
    void dodoAPIKeyChanged();
    void dodoCurrencyChanged();
    void stripeAPIKeyChanged();
    void stripeCurrencyChanged();
    void lemonSqueezyAPIKeyChanged();
    void revenueLabelChanged();
    void isFetchingRevenueChanged();
    void lastFetchErrorChanged();
    void fetchProblemsChanged();
    void cryptoSymbolsChanged();
    void cryptoRotateIntervalChanged();
    void cryptoPricesChanged();
    void cryptoPriceStatusesChanged();
    void currentCryptoIndexChanged();
    void deadlinesChanged();
    void customQuotesChanged();
    void quoteRotateIntervalChanged();
    void currentDisplayChanged();
    void isDisplayStaleChanged();
    /// A display tick is over: whatever depends on the current moment may have changed.
    void ticked();

private:
    void forwardSignals();
    void forwardCredential(KeychainKey key);
    void tick();
    ClockReadings clockReadings() const;
    void refreshAfterTimeJump();
    QString buildText() const;
    bool isStale() const;
    void followStaleness();
    QString formattedTime(bool withSeconds) const;

    TickerWorld m_world;
    ClockText m_clockText;
    ClockText m_spokenText; ///< where the spoken time leaves out what the line has
    TickerMode m_mode = TickerMode::Clock;
    QString m_customText = QStringLiteral("hello world ✦");
    bool m_showSeconds = true;
    bool m_use24Hour = true;
    QString m_currentDisplay;
    bool m_isDisplayStale = false;
    Quotes m_quotes;
    Deadlines m_deadlines;
    PriceList m_prices;
    RevenueReport m_revenue;
    std::unique_ptr<RepeatingTimer> m_timer;
    ClockReadings m_lastReadings; ///< at the tick before
};

} // namespace glimmet
