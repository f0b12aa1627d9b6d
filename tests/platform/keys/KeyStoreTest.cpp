#include "platform/bus/SessionBus.h"
#include "platform/keys/KeychainHelper.h"
#include "tests/platform/keys/Accounts.h"
#include "tests/platform/keys/Limits.h"
#include "tests/support/ManualTimers.h"
#include "tests/support/MemoryKeyStore.h"
#include "tests/support/Printing.h"
#include "tests/support/SecretServiceDaemon.h"

#include <QCoreApplication>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <type_traits>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString otherAccount = u"stripe_currency"_s;
const QString account = u"stripe_api_key"_s;

LoadedKey found(const QString &text)
{
    return ApiKey(text);
}

/// The store in a desktop's keyring.
class Keyring {
public:
    Keyring()
    {
        m_daemon.start();
        m_bus.open();
    }

    KeyStore &store() { return m_store; }
    void lock() { m_daemon.lock(); }
    void unlock() { m_daemon.unlock(); }
    void put(const QByteArray &value) { m_daemon.put(attributesOf(account), value); }
    /// Lets time pass, and all happen that has been begun.
    void waitLong()
    {
        m_timers.advance(1min);
        settle(m_bus.connection());
    }
    QList<QByteArray> values() const
    {
        QList<QByteArray> values;
        for (const StoredItem &item : m_daemon.items(attributesOf(account)))
            values.append(item.value);
        return values;
    }

private:
    SecretServiceDaemon m_daemon;
    ManualTimers m_timers;
    SystemSteadyClock m_clock;
    SessionBus m_bus{ m_timers };
    KeychainHelper m_store{ m_bus, m_timers, m_clock, patient };
};

class Memory {
public:
    KeyStore &store() { return m_store; }
    void lock() { m_store.lock(); }
    void unlock() { m_store.unlock(); }
    void put(const QByteArray &value) { m_store.items().insert(account, value); }
    void waitLong() { QCoreApplication::processEvents(); }
    QList<QByteArray> values()
    {
        const bool has = m_store.items().contains(account);
        return has ? QList{ m_store.items().value(account) } : QList<QByteArray>();
    }

private:
    MemoryKeyStore m_store;
};

/// What every key store promises, whether it is a test's or the desktop's.
template <typename Maker> class AnyKeyStore : public testing::Test {
protected:
    Maker world;
    KeyStore &store = world.store();
};

using Stores = testing::Types<Keyring, Memory>;
TYPED_TEST_SUITE(AnyKeyStore, Stores);

TYPED_TEST(AnyKeyStore, returnsTheValueThatWasSaved)
{
    EXPECT_TRUE(this->store.save(ApiKey(u"abc"_s), account));

    EXPECT_EQ(this->store.load(account), found(u"abc"_s));
    EXPECT_EQ(this->world.values(), QList<QByteArray>{ "abc" });
}

TYPED_TEST(AnyKeyStore, tellsAnEmptyValueFromNone)
{
    EXPECT_TRUE(this->store.save(ApiKey(u""_s), account));

    EXPECT_EQ(this->store.load(account), found(u""_s));
    EXPECT_EQ(this->world.values(), QList<QByteArray>{ "" });
    EXPECT_EQ(this->store.load(otherAccount), LoadedKey(KeyAbsent{}));
}

TYPED_TEST(AnyKeyStore, keepsOneItemWithTheSecondValue)
{
    EXPECT_TRUE(this->store.save(ApiKey(u"first"_s), account));
    EXPECT_TRUE(this->store.save(ApiKey(u"second"_s), account));

    EXPECT_EQ(this->store.load(account), found(u"second"_s));
    EXPECT_EQ(this->world.values(), QList<QByteArray>{ "second" });
}

TYPED_TEST(AnyKeyStore, hasNothingAtFirst)
{
    EXPECT_EQ(this->store.load(account), LoadedKey(KeyAbsent{}));
    EXPECT_FALSE(this->store.remove(account));
}

TYPED_TEST(AnyKeyStore, removesAnItemOnce)
{
    this->store.save(ApiKey(u"abc"_s), account);
    this->store.save(ApiKey(u"EUR"_s), otherAccount);

    EXPECT_TRUE(this->store.remove(account));
    EXPECT_FALSE(this->store.remove(account));

    EXPECT_EQ(this->store.load(account), LoadedKey(KeyAbsent{}));
    EXPECT_EQ(this->store.load(otherAccount), found(u"EUR"_s));
}

TYPED_TEST(AnyKeyStore, keepsEachKeyToItself)
{
    for (const QString &each : accounts)
        EXPECT_TRUE(this->store.save(ApiKey(u"value of "_s + each), each));

    for (const QString &each : accounts)
        EXPECT_EQ(this->store.load(each), found(u"value of "_s + each));
}

TYPED_TEST(AnyKeyStore, keepsEveryText)
{
    const QStringList texts{ u"sk_live_⚡️"_s, u"two\nlines\r\ttab"_s, u"\uFEFFmark"_s, u"a\0b"_s,
        u"é e\u0301 ثانية 中文 🛠"_s, u" blanks "_s, u"\uFFFD\uFFFF"_s, QString(200'000, u'x') };

    for (const QString &text : texts) {
        EXPECT_TRUE(this->store.save(ApiKey(text), account));
        EXPECT_EQ(this->store.load(account), found(text));
    }
}

TYPED_TEST(AnyKeyStore, refusesATextWithoutAnEncodingAndKeepsTheItem)
{
    this->store.save(ApiKey(u"abc"_s), account);

    for (const QString &text : { QString(QChar(0xD83D)), QString(QChar(0xDE00)) + u"x"_s })
        EXPECT_FALSE(this->store.save(ApiKey(text), account));

    EXPECT_EQ(this->store.load(account), found(u"abc"_s));
}

TYPED_TEST(AnyKeyStore, findsWhatAnotherProgramPutThere)
{
    this->world.put("elsewhere");

    EXPECT_EQ(this->store.load(account), found(u"elsewhere"_s));
    EXPECT_TRUE(this->store.save(ApiKey(u"here"_s), account));
    EXPECT_EQ(this->world.values(), QList<QByteArray>{ "here" });
}

TYPED_TEST(AnyKeyStore, takesAnItemThatIsNoTextForAbsent)
{
    for (const QByteArray &bytes :
        { QByteArray("\xFF\xFE"), QByteArray("abc\xC3"), QByteArray("\xED\xA0\x80") }) {
        this->store.remove(account);
        this->world.put(bytes);

        EXPECT_EQ(this->store.load(account), LoadedKey(KeyAbsent{}));
    }
    EXPECT_TRUE(this->store.save(ApiKey(u"abc"_s), account));
}

TYPED_TEST(AnyKeyStore, touchesNothingWhileItIsLocked)
{
    this->store.save(ApiKey(u"abc"_s), account);
    this->world.lock();

    EXPECT_FALSE(this->store.save(ApiKey(u"def"_s), account));
    EXPECT_FALSE(this->store.remove(account));
    EXPECT_EQ(this->store.load(account), LoadedKey(KeyUnavailable{}));
    EXPECT_EQ(this->store.load(otherAccount), LoadedKey(KeyUnavailable{}));

    this->world.unlock();
    EXPECT_EQ(this->world.values(), QList<QByteArray>{ "abc" });
}

TYPED_TEST(AnyKeyStore, leavesAnItemAloneUntilItWasRead)
{
    this->store.save(ApiKey(u"abc"_s), account);
    this->world.lock();
    this->store.load(account);
    this->world.unlock();

    EXPECT_FALSE(this->store.save(ApiKey(u""_s), account));
    EXPECT_FALSE(this->store.remove(account));
    EXPECT_TRUE(this->store.save(ApiKey(u"EUR"_s), otherAccount));
    EXPECT_EQ(this->store.load(account), found(u"abc"_s));

    EXPECT_TRUE(this->store.save(ApiKey(u""_s), account));
    EXPECT_EQ(this->store.load(account), found(u""_s));
}

TYPED_TEST(AnyKeyStore, tellsWhenItCanBeReadAgain)
{
    this->store.save(ApiKey(u"abc"_s), account);
    this->world.lock();
    this->store.load(account);
    QSignalSpy readable(&this->store, &KeyStore::becameReadable);

    this->world.unlock();
    EXPECT_TRUE(readable.isEmpty());

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_EQ(this->store.load(account), found(u"abc"_s));
}

TYPED_TEST(AnyKeyStore, tellsOfASaveThatCanBeMadeUpFor)
{
    this->world.lock();
    QSignalSpy readable(&this->store, &KeyStore::becameReadable);
    EXPECT_FALSE(this->store.save(ApiKey(u"abc"_s), account));

    this->world.unlock();

    ASSERT_TRUE(waitFor([&] { return readable.count() == 1; }));
    EXPECT_TRUE(this->store.save(ApiKey(u"abc"_s), account));
}

TYPED_TEST(AnyKeyStore, isSilentWhereEverythingGotThrough)
{
    QSignalSpy readable(&this->store, &KeyStore::becameReadable);
    this->store.save(ApiKey(u"abc"_s), account);
    this->store.load(account);
    this->store.load(otherAccount);
    this->store.remove(otherAccount);

    this->world.lock();
    this->world.unlock();

    this->world.waitLong();
    EXPECT_TRUE(readable.isEmpty());
}

template <typename Value>
concept Printable = requires(QDebug debug, const Value &value) { debug << value; };

static_assert(Printable<QString> && !Printable<ApiKey> && !Printable<SecretOfItem>);

} // namespace
} // namespace glimmet
