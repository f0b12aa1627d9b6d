#include "platform/Secret.h"

#include "platform/keys/ApiKey.h"
#include "platform/net/HttpExchange.h"
#include "tests/support/OwnMemory.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace glimmet {
namespace {

using namespace Qt::StringLiterals;

TEST(Secret, isOverwrittenWhenItsLastCopyGoes)
{
    std::optional<SecretText> copy;
    {
        const SecretText secret(markedKey());
        copy = secret;
    }
    EXPECT_EQ(copiesOfMarkedKey(), 1);

    copy.reset();

    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

TEST(Secret, isOverwrittenWhenAnotherTakesItsPlace)
{
    SecretText secret(markedKey());
    EXPECT_EQ(copiesOfMarkedKey(), 1);

    secret = SecretText(u"another"_s);

    EXPECT_EQ(copiesOfMarkedKey(), 0);
    EXPECT_EQ(*secret, u"another"_s);
}

TEST(Secret, isOverwrittenOnWhicheverThreadItGoesLast)
{
    std::jthread([secret = SecretBytes(SecretText(markedKey())->toUtf8())] {
        EXPECT_FALSE(secret->isEmpty());
    }).join();

    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

TEST(Secret, leavesWhatOthersShareAsItIs)
{
    QString typed = markedKey();

    std::optional<SecretText> secret(typed);
    secret.reset();

    EXPECT_EQ(typed, *SecretText(markedKey()));
    wipe(typed);
    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

TEST(Secret, comparesAsItsText)
{
    EXPECT_EQ(SecretText(), SecretText(u""_s));
    EXPECT_EQ(SecretText(u"a"_s), SecretText(u"a"_s));
    EXPECT_FALSE(SecretText(u"a"_s) == SecretText(u"b"_s));
}

TEST(ApiKey, isOverwrittenWhenItGoesAndWhenAnotherTakesItsPlace)
{
    {
        ApiKey key(markedKey());
        const ApiKey copy = std::exchange(key, ApiKey(markedKey()));
        EXPECT_FALSE(copy.isBlank());
        EXPECT_EQ(copiesOfMarkedKey(), 2);
        key = ApiKey(u"another"_s);
        EXPECT_EQ(copiesOfMarkedKey(), 1);
    }

    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

TEST(HttpExchange, overwritesTheKeyThatItCarried)
{
    {
        const SecretText key(markedKey());
        const SecretBytes value(key->toUtf8());
        const HttpExchange exchange({}, { .address = "https://a.example/", .authorization = value }, {});
        EXPECT_GT(copiesOfMarkedKey(), 2);
    }

    EXPECT_EQ(copiesOfMarkedKey(), 0);
}

} // namespace
} // namespace glimmet
