#include "platform/desktop/AutostartLoginItem.h"
#include "tests/platform/TestFolder.h"
#include "tests/support/MemoryLoginItem.h"

#include <gtest/gtest.h>

namespace glimmet {
namespace {

struct AutostartKind {
    TestFolder folder;
    AutostartLoginItem item{ folder.path() + QStringLiteral("/autostart"), QStringLiteral("/bin/sh") };
};

struct MemoryKind {
    MemoryLoginItem item;
};

/// What every login item promises, the desktop's and the tests' alike.
template <typename Kind> class AnyLoginItem : public testing::Test {
protected:
    std::optional<QString> failureOf(void (LoginItem::*operation)(const LoginItem::Completion &))
    {
        int answers = 0;
        std::optional<QString> failure;
        (item().*operation)([&](const auto &answer) {
            ++answers;
            failure = answer;
        });
        EXPECT_EQ(answers, 1);
        return failure;
    }
    LoginItem &item() { return kind.item; }

    Kind kind;
};

using Kinds = testing::Types<AutostartKind, MemoryKind>;
TYPED_TEST_SUITE(AnyLoginItem, Kinds);

TYPED_TEST(AnyLoginItem, isNotRegisteredAtFirst)
{
    EXPECT_EQ(this->item().status(), LoginItemStatus::NotRegistered);
}

TYPED_TEST(AnyLoginItem, isEnabledOnceItIsRegisteredHoweverOften)
{
    EXPECT_EQ(this->failureOf(&LoginItem::registerItem), std::nullopt);
    EXPECT_EQ(this->failureOf(&LoginItem::registerItem), std::nullopt);

    EXPECT_EQ(this->item().status(), LoginItemStatus::Enabled);
}

TYPED_TEST(AnyLoginItem, isNotRegisteredOnceItIsTakenBackHoweverOften)
{
    this->failureOf(&LoginItem::registerItem);

    EXPECT_EQ(this->failureOf(&LoginItem::unregisterItem), std::nullopt);
    EXPECT_EQ(this->failureOf(&LoginItem::unregisterItem), std::nullopt);

    EXPECT_EQ(this->item().status(), LoginItemStatus::NotRegistered);
}

} // namespace
} // namespace glimmet
