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
#include <cstdlib>
#include <cstring>
#include <optional>

using namespace Tarvik;

int main(int argc, char* argv[])
{
    // The few threads of the libraries allocate next to nothing; a heap for each of them would only be memory.
    mallopt(M_ARENA_MAX, 1);
    installLogSink();
    QCoreApplication application(argc, argv);
    const Translation translation;
    const UnixSignals signals([] { QCoreApplication::quit(); });

    const QDBusConnection sessionBus = QDBusConnection::sessionBus();
    SingleInstance instance(sessionBus);
    std::optional<TarvikApp> tarvik;
    bool isRelaunched = false;
    const auto relaunch = [&isRelaunched] {
        isRelaunched = true;
        QCoreApplication::quit();
    };
    const auto start = [&] {
        instance.decide([&](SingleInstance::Role role) {
            if (role == SingleInstance::Role::second)
                QCoreApplication::quit();
            else
                tarvik.emplace(QDBusConnection::systemBus(), sessionBus, relaunch);
        });
    };
    TimerfdClock clock;
    std::optional<SystemdSupervision> supervision;
    supervision.emplace(sessionBus, clock, QString::fromLatin1(TarvikWire::busName), SupervisedProgram::current());
    supervision->handOver([&](bool isHandedOver) {
        supervision.reset();
        if (isHandedOver)
            QCoreApplication::quit();
        else
            start();
    });
    const int status = QCoreApplication::exec();
    tarvik.reset();
    // A second instance would hand over to this one, so this process becomes the new one; to a service manager it goes
    // on running.
    if (isRelaunched) {
        execv(QFile::encodeName(QCoreApplication::applicationFilePath()).constData(), argv);
        qCCritical(logSystem, "Could not start again: %s", std::strerror(errno));
        return EXIT_FAILURE;
    }
    return status;
}
