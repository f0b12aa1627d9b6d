// Drives the updater from standard input, so that a test can do it against the real service: "check",
// "install", "cancel" or "dismiss" a line. Each new state is a line of JSON on standard output.

#include "app/updates/UpdaterController.h"
#include "platform/Clock.h"
#include "platform/bus/SessionBus.h"
#include "platform/bus/SystemBus.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QSocketNotifier>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <string>

using namespace glimmet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

void print(const UpdateState &state)
{
    const char *phase = QMetaEnum::fromType<UpdatePhase>().valueToKey(static_cast<int>(state.phase));
    const QJsonObject line{ { u"phase"_s, QString::fromLatin1(phase) },
        { u"installed"_s, state.installedVersion }, { u"new"_s, state.newVersion },
        { u"changes"_s, state.changes }, { u"percentage"_s, state.percentage.value_or(-1) },
        { u"cancellable"_s, state.isCancellable }, { u"words"_s, state.failure.words },
        { u"details"_s, state.failure.details } };
    std::cout << QJsonDocument(line).toJson(QJsonDocument::Compact).constData() << std::endl;
}

void obey(UpdaterController &updater, const std::string &command)
{
    if (command == "check")
        updater.checkForUpdates();
    else if (command == "install")
        updater.install();
    else if (command == "cancel")
        updater.cancel();
    else if (command == "dismiss")
        updater.dismiss();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::cerr << "Usage: glimmet_update_probe PROGRAM\n";
        return 2;
    }
    SystemBus systemBus;
    EventLoopTimers timers;
    const SessionBus sessionBus(timers);
    const SystemClock clock;
    UpdaterController updater({ systemBus, sessionBus, timers, clock, QString::fromLocal8Bit(argv[1]), 30s });
    QObject::connect(&updater, &UpdaterController::stateChanged, &updater, [&] { print(updater.state()); });
    const QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &updater, [&] {
        std::string command;
        if (std::getline(std::cin, command))
            obey(updater, command);
        else
            QCoreApplication::quit();
    });
    return QCoreApplication::exec();
}
