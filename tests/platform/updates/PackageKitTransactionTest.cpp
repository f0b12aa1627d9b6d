#include "platform/updates/PackageKitTransaction.h"
#include "tests/support/FakePackageKit.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <memory>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = FakePackageKit::Course::Kind;

const PackageId update{ u"glimmet"_s, u"1.1"_s, u"amd64"_s, u"test"_s };

class PackageKitTransactionTest : public testing::Test {
protected:
    ~PackageKitTransactionTest() override
    {
        transaction.reset();
        for (const QString &name : { u"own"_s, u"stranger"_s })
            QDBusConnection::disconnectFromBus(name);
    }

    /// For a minute it is patient.
    PackageKitTransaction &start(const PackageKitCall &call)
    {
        transaction = std::make_unique<PackageKitTransaction>(daemon.peer(u"own"_s), call, timers, 1min);
        QObject::connect(transaction.get(), &PackageKitTransaction::finished, transaction.get(),
            [this](const TransactionResult &end) {
                ++endings;
                result = end;
            });
        QObject::connect(transaction.get(), &PackageKitTransaction::progressed, transaction.get(),
            [this](const TransactionProgress &last) { progress.append(last); });
        transaction->start();
        return *transaction;
    }
    bool ends() const
    {
        return waitFor([this] { return endings == 1; });
    }
    /// Waits until the service has been asked for `method`, and holds it.
    bool hangs(const QString &method) const
    {
        return waitFor([&] { return service->isAt(method); });
    }

    /// Has the service say something, and waits until it is heard.
    bool hears(const QVariantMap &properties)
    {
        const qsizetype before = progress.size();
        service->tell(properties);
        return waitFor([&] { return progress.size() > before; });
    }

    PrivateBus daemon;
    ManualTimers timers;
    std::unique_ptr<FakePackageKit> service = std::make_unique<FakePackageKit>(daemon);
    std::unique_ptr<PackageKitTransaction> transaction;
    TransactionResult result;
    QList<TransactionProgress> progress;
    int endings = 0;
};

TEST_F(PackageKitTransactionTest, collectsThePackagesWithoutTheirSeverity)
{
    start(PackageKitCalls::updates());

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::Succeeded);
    ASSERT_EQ(result.packages.size(), 1);
    EXPECT_EQ(result.packages.first().info, 5U);
    EXPECT_EQ(result.packages.first().id, update);
}

TEST_F(PackageKitTransactionTest, asksOnlyForInstalledOwnersOfTheFile)
{
    start(PackageKitCalls::ownerOf(u"/usr/bin/glimmet"_s));

    ASSERT_TRUE(ends());
    const quint64 installedOnly = 4;
    EXPECT_EQ(service->argumentsOf(u"SearchFiles"_s),
        (QVariantList{ installedOnly, QStringList{ u"/usr/bin/glimmet"_s } }));
}

TEST_F(PackageKitTransactionTest, installsOnlyWhatIsTrusted)
{
    start(PackageKitCalls::install(update));

    ASSERT_TRUE(ends());
    const quint64 onlyTrusted = 2;
    EXPECT_EQ(service->argumentsOf(u"UpdatePackages"_s),
        (QVariantList{ onlyTrusted, QStringList{ u"glimmet;1.1;amd64;test"_s } }));
}

TEST_F(PackageKitTransactionTest, neverHasAPasswordAskedForWhileNobodyIsThere)
{
    start(PackageKitCalls::refreshCache(Asking::Nobody));

    ASSERT_TRUE(ends());
    const QStringList hints = service->hintsOf(u"RefreshCache"_s);
    EXPECT_TRUE(hints.contains(u"interactive=false"_s));
    EXPECT_TRUE(hints.contains(u"background=true"_s));
}

TEST_F(PackageKitTransactionTest, mayHaveTheUserAsked)
{
    start(PackageKitCalls::refreshCache(Asking::User));

    ASSERT_TRUE(ends());
    const QStringList hints = service->hintsOf(u"RefreshCache"_s);
    EXPECT_TRUE(hints.contains(u"interactive=true"_s));
    EXPECT_TRUE(hints.contains(u"background=false"_s));
}

TEST_F(PackageKitTransactionTest, readsWhatIsNew)
{
    start(PackageKitCalls::changesOf(update));

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.changes, u"Faster ✦"_s);
}

TEST_F(PackageKitTransactionTest, tellsTheServicesErrorAndItsWords)
{
    service->courses[u"RefreshCache"_s] = { Kind::Fails, 64, u"no Release file"_s };

    start(PackageKitCalls::refreshCache(Asking::User));

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::Failed);
    EXPECT_EQ(result.errorCode, 64U);
    EXPECT_EQ(result.details, u"no Release file"_s);
}

TEST_F(PackageKitTransactionTest, takesAnUntrustedPackageForAnUnsignedOne)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Fails, 0, {}, 8 };

    start(PackageKitCalls::install(update));

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.errorCode, 31U);
}

TEST_F(PackageKitTransactionTest, takesARefusedCallForAMissingPermission)
{
    const QString refused = u"org.freedesktop.PackageKit.Transaction.RefusedByPolicy"_s;
    service->courses[u"RefreshCache"_s] = { Kind::Refuses, 0, refused };

    start(PackageKitCalls::refreshCache(Asking::Nobody));

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::Failed);
    EXPECT_EQ(result.errorCode, 48U);
}

TEST_F(PackageKitTransactionTest, knowsAtOnceThatThereIsNoService)
{
    service.reset();

    start(PackageKitCalls::updates());

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::ServiceMissing);
}

TEST_F(PackageKitTransactionTest, knowsAtOnceThatThereIsNoBus)
{
    daemon.kill();

    start(PackageKitCalls::updates());

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::ServiceMissing);
}

TEST_F(PackageKitTransactionTest, noticesThatTheServiceDiesInsteadOfCreatingIt)
{
    service->courses[u"CreateTransaction"_s] = { Kind::Dies };

    start(PackageKitCalls::updates());

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::ServiceGone);
}

TEST_F(PackageKitTransactionTest, doesNotGoOnWithTheNextLifeOfTheService)
{
    service->courses[u"CreateTransaction"_s] = { Kind::DiesAfterwards };

    start(PackageKitCalls::updates());

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::ServiceGone);
    EXPECT_FALSE(service->wasCalled(u"GetUpdates"_s));
}

TEST_F(PackageKitTransactionTest, noticesThatTheServiceDiesInsteadOfAnswering)
{
    service->courses[u"GetUpdates"_s] = { Kind::Dies };

    start(PackageKitCalls::updates());

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::ServiceGone);
}

TEST_F(PackageKitTransactionTest, noticesThatTheServiceDiesAtItsWork)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    start(PackageKitCalls::install(update));
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    service->die();

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::ServiceGone);
}

TEST_F(PackageKitTransactionTest, noticesThatTheBusDies)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    start(PackageKitCalls::install(update));
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    daemon.kill();

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::ServiceGone);
}

TEST_F(PackageKitTransactionTest, endsWhenNothingIsHeardAnyMore)
{
    service->courses[u"GetUpdates"_s] = { Kind::Hangs };
    start(PackageKitCalls::updates());
    ASSERT_TRUE(hangs(u"GetUpdates"_s));
    ASSERT_TRUE(hears({ { u"Percentage"_s, 0U } }));

    timers.advance(59s);
    EXPECT_EQ(endings, 0);

    timers.advance(1s);
    ASSERT_EQ(endings, 1);
    EXPECT_EQ(result.end, TransactionEnd::TimedOut);
    EXPECT_TRUE(waitFor([this] { return service->wasCalled(u"Cancel"_s); }));
}

TEST_F(PackageKitTransactionTest, endsWhenTheServiceDoesNotEvenCreateIt)
{
    service->courses[u"CreateTransaction"_s] = { Kind::Hangs };
    start(PackageKitCalls::updates());
    ASSERT_TRUE(hangs(u"CreateTransaction"_s));

    timers.advance(1min);

    ASSERT_EQ(endings, 1);
    EXPECT_EQ(result.end, TransactionEnd::TimedOut);
}

TEST_F(PackageKitTransactionTest, isPatientAsLongAsItProgresses)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    start(PackageKitCalls::install(update));
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    for (uint percentage = 0; percentage < 6; ++percentage) {
        timers.advance(59s);
        ASSERT_TRUE(hears({ { u"Percentage"_s, percentage } }));
    }
    service->finish(1);

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::Succeeded);
}

TEST_F(PackageKitTransactionTest, waitsForTheUserWithoutLimit)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    start(PackageKitCalls::install(update));
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));
    const uint waitingForAuthorization = 31;
    ASSERT_TRUE(hears({ { u"Status"_s, waitingForAuthorization }, { u"Percentage"_s, 0U } }));

    timers.advance(24h);
    EXPECT_EQ(endings, 0);

    const uint running = 3;
    ASSERT_TRUE(hears({ { u"Status"_s, running }, { u"Percentage"_s, 1U } }));
    timers.advance(1min);
    ASSERT_EQ(endings, 1);
    EXPECT_EQ(result.end, TransactionEnd::TimedOut);
}

TEST_F(PackageKitTransactionTest, endsWhereACancelledQuestionToTheUserIsNeverTakenBack)
{
    service->courses = { { u"UpdatePackages"_s, { Kind::Hangs } }, { u"Cancel"_s, { Kind::Hangs } } };
    start(PackageKitCalls::install(update));
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));
    const uint waitingForAuthorization = 31;
    ASSERT_TRUE(hears({ { u"Status"_s, waitingForAuthorization }, { u"Percentage"_s, 0U } }));

    transaction->cancel();
    timers.advance(1min);

    ASSERT_EQ(endings, 1);
    EXPECT_EQ(result.end, TransactionEnd::TimedOut);
}

TEST_F(PackageKitTransactionTest, tellsHowFarItIsAndWhetherItCanBeStopped)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    start(PackageKitCalls::install(update));
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    service->tell({ { u"Percentage"_s, 40U } });
    service->tell({ { u"AllowCancel"_s, false }, { u"Percentage"_s, 101U } });
    service->finish(1);

    ASSERT_TRUE(ends());
    EXPECT_EQ(progress, (QList<TransactionProgress>{ { 40, true }, { std::nullopt, false } }));
}

TEST_F(PackageKitTransactionTest, isCancelledByTheService)
{
    service->courses[u"UpdatePackages"_s] = { Kind::Hangs };
    start(PackageKitCalls::install(update));
    ASSERT_TRUE(hangs(u"UpdatePackages"_s));

    transaction->cancel();

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::Cancelled);
}

TEST_F(PackageKitTransactionTest, isCancelledBeforeItExists)
{
    start(PackageKitCalls::updates()).cancel();

    ASSERT_TRUE(ends());
    EXPECT_EQ(result.end, TransactionEnd::Cancelled);
    EXPECT_FALSE(service->wasCalled(u"GetUpdates"_s));
}

TEST_F(PackageKitTransactionTest, isCancelledWhenItIsDestroyed)
{
    service->courses[u"GetUpdates"_s] = { Kind::Hangs };
    start(PackageKitCalls::updates());
    ASSERT_TRUE(hangs(u"GetUpdates"_s));

    transaction.reset();

    EXPECT_TRUE(waitFor([this] { return service->wasCalled(u"Cancel"_s); }));
}

TEST_F(PackageKitTransactionTest, endsWithoutAWordWhereItIsAbandoned)
{
    service->courses[u"GetUpdates"_s] = { Kind::Hangs };
    start(PackageKitCalls::updates());
    ASSERT_TRUE(hangs(u"GetUpdates"_s));

    transaction->abandon();

    EXPECT_TRUE(timers.running().empty());
    EXPECT_TRUE(waitFor([this] { return service->wasCalled(u"Cancel"_s); }));
    EXPECT_EQ(endings, 0);
}

TEST_F(PackageKitTransactionTest, believesNobodyElse)
{
    service->courses[u"GetUpdates"_s] = { Kind::Hangs };
    start(PackageKitCalls::updates());
    ASSERT_TRUE(hangs(u"GetUpdates"_s));
    QDBusConnection stranger = daemon.peer(u"stranger"_s);
    const auto say = [&](const QString &name, const QVariantList &values) {
        QDBusMessage signal = QDBusMessage::createSignal(
            service->heldPath(), u"org.freedesktop.PackageKit.Transaction"_s, name);
        signal.setArguments(values);
        stranger.send(signal);
    };

    say(u"Package"_s, { 5U, u"glimmet;6.6.6;amd64;evil"_s, u"summary"_s });
    say(u"Finished"_s, { 1U, 1U });
    // What the stranger said has arrived when the bus, asked after it, has answered.
    ASSERT_EQ(call(stranger, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"GetId"_s, {},
                  u"org.freedesktop.DBus"_s)
                  .type(),
        QDBusMessage::ReplyMessage);
    service->finish(1);

    ASSERT_TRUE(ends());
    EXPECT_TRUE(result.packages.isEmpty());
}

} // namespace
} // namespace glimmet
