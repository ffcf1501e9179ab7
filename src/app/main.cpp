// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/LogSink.h"
#include "app/TarvikApp.h"
#include "app/UnixSignals.h"
#include "bus/SingleInstance.h"
#include "core/Logging.h"
#include "core/Translation.h"
#include "dbus/contracts/TarvikWire.h"
#include "platform/linux/TimerfdClock.h"
#include "platform/linux/session/SystemdSupervision.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QFile>

#include <malloc.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

using namespace Tarvik;

namespace {

/// A login starts the program for everybody who logs in; only for some of them it is to run. What systemd starts again
/// after a crash has been asked for already.
bool isUnwanted(SingleInstance::Start start, const SupervisedProgram& program)
{
    return start == SingleInstance::Start::atLogin
        && !SupervisedProgram::isUnitOf(QString::fromLatin1(TarvikWire::busName), program.cgroup)
        && !LinuxPlatform::makeLoginItem()->isEnabled();
}

} // namespace

int main(int argc, char* argv[])
{
    // The few threads of the libraries allocate next to nothing; a heap for each of them would only be memory.
    mallopt(M_ARENA_MAX, 1);
    installLogSink();
    QCoreApplication application(argc, argv);
    const Translation translation;
    const UnixSignals signals([] { QCoreApplication::quit(); });
    const SupervisedProgram program = SupervisedProgram::current();
    const bool isAtLogin = program.arguments.contains(QLatin1StringView(LinuxPlatform::atLoginOption));
    const auto kindOfStart = isAtLogin ? SingleInstance::Start::atLogin : SingleInstance::Start::byUser;
    if (isUnwanted(kindOfStart, program))
        return EXIT_SUCCESS;

    const QDBusConnection sessionBus = QDBusConnection::sessionBus();
    SingleInstance instance(sessionBus);
    std::optional<TarvikApp> tarvik;
    bool isRelaunched = false;
    const auto relaunch = [&isRelaunched] {
        isRelaunched = true;
        QCoreApplication::quit();
    };
    const auto start = [&] {
        instance.decide(kindOfStart, [&](SingleInstance::Role role) {
            if (role == SingleInstance::Role::second)
                QCoreApplication::quit();
            else
                tarvik.emplace(QDBusConnection::systemBus(), sessionBus, relaunch);
        });
    };
    TimerfdClock clock;
    std::optional<SystemdSupervision> supervision;
    supervision.emplace(sessionBus, clock, QString::fromLatin1(TarvikWire::busName), program);
    supervision->handOver([&](bool isHandedOver) {
        supervision.reset();
        if (isHandedOver)
            QCoreApplication::quit();
        else
            start();
    });
    while (true) {
        const int status = QCoreApplication::exec();
        tarvik.reset();
        if (!std::exchange(isRelaunched, false))
            return status;
        // A second instance would hand over to this one, so this process becomes the new one; to a service manager it
        // goes on running. A login is over by now, and with it what was asked then.
        execl(QFile::encodeName(QCoreApplication::applicationFilePath()).constData(), argv[0], nullptr);
        qCCritical(logSystem, "Could not start what is installed now, and goes on: %s", std::strerror(errno));
        start();
    }
}
