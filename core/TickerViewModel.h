#pragma once

#include "core/Deadline.h"
#include "core/TickerMode.h"
#include "core/TickerWorld.h"
#include "prices/CryptoPrice.h"
#include "revenue/Credentials.h"
#include "revenue/RevenueFetcher.h"

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
/// The engine runs from construction to destruction: a tick every second moves the rotations on and rebuilds
/// `currentDisplay`, which is written nowhere else, so that a change shows within one second.
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
    Q_PROPERTY(
        QStringList cryptoSymbols READ cryptoSymbols WRITE setCryptoSymbols NOTIFY cryptoSymbolsChanged)
    Q_PROPERTY(qint64 cryptoRotateInterval READ cryptoRotateInterval WRITE setCryptoRotateInterval NOTIFY
            cryptoRotateIntervalChanged)
    Q_PROPERTY(QHash<QString, glimmet::CryptoPrice> cryptoPrices READ cryptoPrices NOTIFY cryptoPricesChanged)
    Q_PROPERTY(qint64 currentCryptoIndex READ currentCryptoIndex WRITE setCurrentCryptoIndex NOTIFY
            currentCryptoIndexChanged)
    Q_PROPERTY(QList<glimmet::Deadline> deadlines READ deadlines WRITE setDeadlines NOTIFY deadlinesChanged)
    Q_PROPERTY(QStringList customQuotes READ customQuotes WRITE setCustomQuotes NOTIFY customQuotesChanged)
    Q_PROPERTY(QStringList activeQuotes READ activeQuotes NOTIFY customQuotesChanged)
    Q_PROPERTY(qint64 quoteRotateInterval READ quoteRotateInterval WRITE setQuoteRotateInterval NOTIFY
            quoteRotateIntervalChanged)
    Q_PROPERTY(QString currentDisplay READ currentDisplay NOTIFY currentDisplayChanged)
    Q_PROPERTY(QString spokenDisplay READ spokenDisplay NOTIFY currentDisplayChanged)

public:
    /// Sets every default, loads what is stored and starts the engine.
    explicit TickerViewModel(const TickerWorld &world, QObject *parent = nullptr);
    ~TickerViewModel() override;

    /// Refreshes the text at once, fetches revenue and prices and (re)starts the timers.
    void start();
    /// Stops all three timers.
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

    QString customText() const { return m_customText; }
    void setCustomText(const QString &text);
    bool showSeconds() const { return m_showSeconds; }
    void setShowSeconds(bool show);
    bool use24Hour() const { return m_use24Hour; }
    void setUse24Hour(bool use);

    QStringList customQuotes() const { return m_customQuotes; }
    void setCustomQuotes(const QStringList &quotes);
    /// The user's quotes, or the default ones while there are none.
    QStringList activeQuotes() const;
    /// Ticks that a quote stays.
    qint64 quoteRotateInterval() const { return m_quoteRotateInterval; }
    void setQuoteRotateInterval(qint64 seconds);
    /// Appends a quote without the blanks around it; nothing happens where it is empty or known.
    Q_INVOKABLE void addQuote(const QString &text);
    Q_INVOKABLE void removeQuote(const QString &text);
    /// Back to the default quotes.
    Q_INVOKABLE void resetQuotes();

    QList<Deadline> deadlines() const { return m_deadlines; }
    void setDeadlines(const QList<Deadline> &deadlines);
    /// Those that are still to come, earliest first.
    QList<Deadline> upcomingDeadlines() const;
    void addDeadline(const Deadline &deadline);
    /// Adds a new deadline of that title without the blanks around it; nothing happens where it is empty.
    void addDeadline(const QString &title, Instant date);
    void removeDeadline(const QUuid &id);
    /// The same by the identity's text.
    Q_INVOKABLE void removeDeadline(const QString &id);
    /// Removes those that passed and those to come.
    Q_INVOKABLE void clearDeadlines();

    /// The current moment and the user's region, as the ticker itself sees them.
    Instant now() const;
    const UserRegion &region() const { return m_world.region; }

    QStringList cryptoSymbols() const { return m_cryptoSymbols; }
    void setCryptoSymbols(const QStringList &symbols);
    /// Appends the symbols in `text`, which commas separate, in upper case and without the blanks around
    /// them; what is empty or known is left out. Nothing happens where nothing is new.
    Q_INVOKABLE void addCryptoSymbol(const QString &text);
    /// Removes every entry that is equal to `symbol`; its price stays known.
    Q_INVOKABLE void removeCryptoSymbol(const QString &symbol);
    /// Ticks that a price stays.
    qint64 cryptoRotateInterval() const { return m_cryptoRotateInterval; }
    void setCryptoRotateInterval(qint64 seconds);
    QHash<QString, CryptoPrice> cryptoPrices() const { return m_cryptoPrices; }
    qint64 currentCryptoIndex() const { return m_currentCryptoIndex; }
    void setCurrentCryptoIndex(qint64 index);
    /// Asks for the price of every symbol in the list.
    Q_INVOKABLE void fetchAllCryptoPrices();
    /// Asks again every five minutes, the first time in five minutes.
    void startCryptoPriceTimer();

    RevenueProvider revenueProvider() const { return m_revenueProvider; }
    void setRevenueProvider(RevenueProvider provider);
    /// What a tap on a platform does: chooses it, also the one that is chosen, and fetches.
    Q_INVOKABLE void chooseRevenueProvider(glimmet::RevenueProviders::RevenueProvider provider);
    RevenueMetric revenueMetric() const { return m_revenueMetric; }
    void setRevenueMetric(RevenueMetric metric);
    RevenueMode revenueMode() const { return m_revenueMode; }
    void setRevenueMode(RevenueMode period);
    /// The same for a period; in Revenue mode the choice itself fetches as well.
    Q_INVOKABLE void chooseRevenueMode(glimmet::RevenueModes::RevenueMode period);
    QString polarAPIKey() const { return m_polarAPIKey; }
    void setPolarAPIKey(const QString &key);
    QString revenueCatAPIKey() const { return m_revenueCatAPIKey; }
    void setRevenueCatAPIKey(const QString &key);
    QString revenueCatProjectID() const { return m_revenueCatProjectID; }
    void setRevenueCatProjectID(const QString &id);
    QString dodoAPIKey() const { return m_dodoAPIKey; }
    void setDodoAPIKey(const QString &key);
    QString dodoCurrency() const { return m_dodoCurrency; }
    void setDodoCurrency(const QString &currency);
    /// The same for a currency, as it is typed.
    Q_INVOKABLE void chooseDodoCurrency(const QString &currency);
    QString stripeAPIKey() const { return m_stripeAPIKey; }
    void setStripeAPIKey(const QString &key);
    QString stripeCurrency() const { return m_stripeCurrency; }
    void setStripeCurrency(const QString &currency);
    Q_INVOKABLE void chooseStripeCurrency(const QString &currency);
    QString lemonSqueezyAPIKey() const { return m_lemonSqueezyAPIKey; }
    void setLemonSqueezyAPIKey(const QString &key);
    QString revenueLabel() const { return m_revenueLabel; }
    bool isFetchingRevenue() const { return m_isFetchingRevenue; }
    std::optional<QString> lastFetchError() const { return m_lastFetchError; }
    /// The same for QML; empty where there is none.
    QString lastFetchErrorText() const { return m_lastFetchError.value_or(QString()); }
    /// Starts one fetch of the chosen figure.
    Q_INVOKABLE void fetchRevenue();
    /// Fetches now and every five minutes.
    void startRevenueTimer();
    /// Takes the finished text of a fetch.
    void handleRevenueResult(const QString &text);

signals:
    void modeChanged();
    void customTextChanged();
    void showSecondsChanged();
    void use24HourChanged();
    void revenueProviderChanged();
    void revenueMetricChanged();
    void revenueModeChanged();
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
    void cryptoSymbolsChanged();
    void cryptoRotateIntervalChanged();
    void cryptoPricesChanged();
    void currentCryptoIndexChanged();
    void deadlinesChanged();
    void customQuotesChanged();
    void quoteRotateIntervalChanged();
    void currentDisplayChanged();
    /// A display tick is over: whatever depends on the current moment may have changed.
    void ticked();

private:
    using Signal = void (TickerViewModel::*)();

    template <typename Value> void publish(Value &member, const Value &value, Signal changed)
    {
        if (member == value)
            return;
        member = value;
        emit(this->*changed)();
    }
    void tick();
    QString buildText() const;
    QString formattedTime(bool withSeconds) const;

    void handleQuoteRotation();
    QString quoteDisplay() const;
    void loadQuotes();
    void saveQuotes();

    void handleDeadlineRotation();
    QString deadlineDisplay() const;
    void loadDeadlines();
    void saveDeadlines();

    void handleCryptoRotation();
    /// The list is not empty.
    QString symbolOnShow() const;
    QString cryptoDisplay() const;
    void loadCryptoSymbols();
    void fetchPrice(const QString &symbol);
    void keepPrice(const CryptoPrice &price);

    struct Credential;
    /// Who chose the value of a credential: the user, or the key store.
    enum class Origin { User, KeyStore };

    static const Credential &credential(KeychainKey key);
    /// Saves the value and, where the user chose it, fetches with it in Revenue mode.
    void setCredential(KeychainKey key, const QString &value, Origin origin = Origin::User);
    void loadCredentials();
    /// Asks the key store once more for what it could not tell or take.
    void settleCredentials();

    RevenueQuery revenueQuery() const;
    void fetchRevenueInRevenueMode();

    TickerWorld m_world;
    Credentials m_credentials;

    TickerMode m_mode = TickerMode::Clock;
    QString m_customText = QStringLiteral("hello world ✦");
    bool m_showSeconds = true;
    bool m_use24Hour = true;
    RevenueProvider m_revenueProvider = RevenueProvider::Polar;
    RevenueMetric m_revenueMetric = RevenueMetric::Revenue;
    RevenueMode m_revenueMode = RevenueMode::AllTime;
    QString m_polarAPIKey;
    QString m_revenueCatAPIKey;
    QString m_revenueCatProjectID;
    QString m_dodoAPIKey;
    QString m_dodoCurrency = QStringLiteral("USD");
    QString m_stripeAPIKey;
    QString m_stripeCurrency = QStringLiteral("USD");
    QString m_lemonSqueezyAPIKey;
    QString m_revenueLabel = QStringLiteral("–");
    bool m_isFetchingRevenue = false;
    std::optional<QString> m_lastFetchError;
    QStringList m_cryptoSymbols{ QStringLiteral("BTC-USD"), QStringLiteral("ETH-USD") };
    qint64 m_cryptoRotateInterval = 10;
    QHash<QString, CryptoPrice> m_cryptoPrices;
    qint64 m_currentCryptoIndex = 0;
    qint64 m_cryptoRotateCount = 0;
    std::unique_ptr<RepeatingTimer> m_cryptoPriceTimer;
    QList<Deadline> m_deadlines;
    qint64 m_deadlineRotateCount = 0;
    qint64 m_currentDeadlineIndex = 0;
    QStringList m_customQuotes;
    qint64 m_quoteRotateInterval = 30;
    qint64 m_quoteRotateCount = 0;
    qint64 m_currentQuoteIndex = 0;
    std::unique_ptr<RepeatingTimer> m_timer;
    std::unique_ptr<RepeatingTimer> m_revenueTimer;
    QString m_currentDisplay;
};

} // namespace glimmet
