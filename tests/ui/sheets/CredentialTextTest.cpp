#include "ui/sheets/CredentialText.h"
#include "tests/support/TestWorld.h"

#include <QSignalSpy>

namespace glimmet {
namespace {

class CredentialTextTest : public TickerTest {
protected:
    CredentialTextTest()
    {
        text.setTicker(&ticker);
        text.setKey(static_cast<int>(KeychainKey::StripeAPIKey));
        changes.clear();
    }

    CredentialText text;
    QSignalSpy changes{ &text, &CredentialText::textChanged };
};

TEST_F(CredentialTextTest, followsItsCredentialAlone)
{
    ticker.setStripeAPIKey(u"rk_1"_s);
    EXPECT_EQ(text.text(), u"rk_1"_s);
    EXPECT_EQ(changes.count(), 1);

    ticker.setDodoAPIKey(u"dk_1"_s);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(CredentialTextTest, isTheTickersOwnAndSaved)
{
    text.setText(u"rk_2"_s);

    EXPECT_EQ(ticker.stripeAPIKey(), u"rk_2"_s);
    EXPECT_EQ(world.keys.items().value(u"stripe_api_key"_s), QByteArray("rk_2"));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(CredentialTextTest, showsAnotherOneOnceItIsAskedFor)
{
    ticker.setDodoAPIKey(u"dk_1"_s);

    text.setKey(static_cast<int>(KeychainKey::DodoAPIKey));

    EXPECT_EQ(text.text(), u"dk_1"_s);
}

TEST_F(CredentialTextTest, saysWhatKeepsItsKeyFromBeingSaved)
{
    QSignalSpy told(&text, &CredentialText::statusChanged);
    world.keys.lock();
    EXPECT_EQ(text.trouble(), QString());

    text.setText(u"rk_2"_s);

    EXPECT_EQ(text.trouble(), u"Keyring locked: kept until glimmet quits"_s);
    EXPECT_EQ(text.remedy(), u"Unlock"_s);
    EXPECT_GE(told.count(), 1);
}

TEST_F(CredentialTextTest, isEmptyWithoutATicker)
{
    text.setTicker(nullptr);
    text.setText(u"rk_3"_s);

    EXPECT_EQ(text.text(), QString());
    EXPECT_EQ(ticker.stripeAPIKey(), QString());
}

} // namespace
} // namespace glimmet
