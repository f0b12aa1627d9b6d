#include "revenue/KeyConsent.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

using Act = KeyConsent::Act;
constexpr auto everyAct = { Act::ChoosingRevenue, Act::EditingKey, Act::AskingForIt };

TEST(KeyConsent, isGivenByWhateverTheUserDoesFirst)
{
    for (const Act act : everyAct)
        EXPECT_TRUE(KeyConsent().isGivenBy(act));
}

TEST(KeyConsent, isGivenAfterARefusalWhileEditingOnlyByAskingForIt)
{
    KeyConsent consent;
    consent.noteAsking(Act::EditingKey);

    consent.noteRefusal();

    EXPECT_FALSE(consent.isGivenBy(Act::ChoosingRevenue));
    EXPECT_FALSE(consent.isGivenBy(Act::EditingKey));
    EXPECT_TRUE(consent.isGivenBy(Act::AskingForIt));
}

TEST(KeyConsent, isStillGivenByEditingWhereChoosingRevenueWasRefused)
{
    KeyConsent consent;
    consent.noteAsking(Act::ChoosingRevenue);

    consent.noteRefusal();

    EXPECT_FALSE(consent.isGivenBy(Act::ChoosingRevenue));
    EXPECT_TRUE(consent.isGivenBy(Act::EditingKey));
}

TEST(KeyConsent, isGivenAgainByAnotherEditingOfAKey)
{
    KeyConsent consent;
    consent.noteAsking(Act::EditingKey);
    consent.noteRefusal();

    consent.beginEditing();

    EXPECT_TRUE(consent.isGivenBy(Act::EditingKey));
    EXPECT_FALSE(consent.isGivenBy(Act::ChoosingRevenue));
    consent.noteRefusal();
    EXPECT_FALSE(consent.isGivenBy(Act::EditingKey));
}

TEST(KeyConsent, isGivenByEverythingOnceTheStoreWasOpen)
{
    KeyConsent consent;
    consent.noteRefusal();

    consent.noteOpening();

    for (const Act act : everyAct)
        EXPECT_TRUE(consent.isGivenBy(act));
}

} // namespace
} // namespace glimmet
