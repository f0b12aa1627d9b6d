#include "platform/DiagnosticLog.h"
#include "revenue/AnswerChecks.h"
#include "revenue/RevenueReport.h"
#include "tests/support/CapturedLog.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/OwnMemory.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(KeysInMemory, leaveNoCopyWhenAnotherKeyIsChosen)
{
    ManualClock clock;
    ManualTimers timers{ clock };
    RevenueReport report({ clock, timers, nullptr, nullptr, [] { return false; } });
    {
        const SecretText typed(markedKey());
        report.setCredential(KeychainKey::PolarAPIKey, *typed);
    }
    EXPECT_EQ(copiesOfMarkedKey(), 1);

    report.setCredential(KeychainKey::PolarAPIKey, u"another"_s);

    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

/// Has one key, makes it anew for each who asks, and keeps nothing.
class StoreOfOneKey final : public KeyStore {
    KeyObstacle obstacle() const override { return KeyObstacle::None; }
    void ask(Wish /*wish*/) override {}
    bool isAsking() const override { return false; }
    bool write(const ApiKey &, const QString &, Cause /*cause*/) override { return true; }
    LoadedKey read(const QString &account) override
    {
        const bool isPolar = account == accountName(KeychainKey::PolarAPIKey);
        return isPolar ? LoadedKey(ApiKey(markedKey())) : KeyAbsent{};
    }
    bool erase(const QString &, Cause /*cause*/) override { return true; }
};

TEST(KeysInMemory, leaveNoCopyOnTheWayFromTheStore)
{
    ManualClock clock;
    ManualTimers timers{ clock };
    StoreOfOneKey store;
    RevenueReport report({ clock, timers, nullptr, &store, [] { return false; } });
    report.loadCredentials();
    EXPECT_EQ(copiesOfMarkedKey(), 1);

    report.setCredential(KeychainKey::PolarAPIKey, u"another"_s);

    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

TEST(KeysInMemory, leaveNoCopyBehindARequest)
{
    {
        const HttpRequest request =
            authorizedRequest("https://a.example/", ApiKey(markedKey()), "application/json");
        EXPECT_EQ(copiesOfMarkedKey(), 1);
    }

    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

TEST(KeysInMemory, leaveNoCopyBehindTheMaskingOfAnAnswer)
{
    CapturedLog log;
    // One that has another form in JSON, with blanks around it, made in one piece.
    QString odd;
    odd.reserve(100);
    odd += u" /\"\\"_s;
    odd += *SecretText(markedKey());
    odd += u' ';

    const auto body = checkedBody(HttpAnswer{ 200, "{}" },
        { .service = u"Stripe"_s, .body = u"page"_s, .headLength = 10 }, ApiKey(std::move(odd)), log.log());

    EXPECT_TRUE(std::holds_alternative<QByteArray>(body));
    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

} // namespace
} // namespace glimmet
