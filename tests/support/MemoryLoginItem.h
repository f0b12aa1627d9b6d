#pragma once

#include "platform/desktop/LoginItem.h"

#include <QStringList>

namespace glimmet {

/// A login item in a test's hand.
class MemoryLoginItem final : public LoginItem {
public:
    LoginItemStatus status() const override { return current; }
    void registerItem(const Completion &completion) override
    {
        answer("register", LoginItemStatus::Enabled, completion);
    }
    void unregisterItem(const Completion &completion) override
    {
        answer("unregister", LoginItemStatus::NotRegistered, completion);
    }

    LoginItemStatus current = LoginItemStatus::NotRegistered;
    std::optional<QString> failure; ///< of whatever is asked next
    QStringList asked; ///< "register" and "unregister", in order

private:
    void answer(const char *request, LoginItemStatus wanted, const Completion &completion)
    {
        asked.append(QString::fromLatin1(request));
        if (!failure)
            current = wanted;
        completion(failure);
    }
};

} // namespace glimmet
