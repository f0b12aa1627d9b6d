#pragma once

#include "platform/bus/SessionBus.h"
#include "platform/keys/KeychainHelper.h"
#include "tests/platform/keys/FakeSecretService.h"
#include "tests/platform/keys/Limits.h"
#include "tests/support/ManualTimers.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <optional>

namespace glimmet {

/// The program beside a service that fails when it is told to, and has one item.
class FakeServiceWorld {
public:
    explicit FakeServiceWorld(int lives = 1, CallLimits callLimits = patient)
        : limits(callLimits)
        , service(bus, lives)
    {
        service.put(QStringLiteral("polar_api_key"), "old");
        sessionBus.open();
        store.emplace(sessionBus, timers, steadyClock, limits);
        QTest::qWait(0);
        sinceStart.start();
    }
    /// Whether everything since the start took no longer than one call may.
    bool isInTime() const { return std::chrono::milliseconds(sinceStart.elapsed()) <= limits.later + slack; }

    static constexpr auto slack = std::chrono::milliseconds(300); ///< for a busy machine

    CallLimits limits;
    QTemporaryDir noServices;
    PrivateBus bus{ noServices.path() };
    FakeSecretService service;
    ManualTimers timers;
    SystemSteadyClock steadyClock;
    SessionBus sessionBus{ timers };
    std::optional<KeychainHelper> store;
    QElapsedTimer sinceStart;
};

} // namespace glimmet
