// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/TimerfdClock.h"
#include "platform/linux/sleep/DesktopDisplayPower.h"
#include "platform/linux/sleep/LogindSleepControl.h"
#include "platform/linux/x11/X11Connection.h"

#include <QCoreApplication>
#include <QDir>
#include <QSocketNotifier>

#include <unistd.h>

#include <iostream>
#include <string>

// SleepProbe [PROGRAM_DIRECTORY]: does what each line that it reads says (take, release, sleep, off, on) and prints
// what comes of it; ends with its input.

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

void say(const QString& line)
{
    std::cout << line.toStdString() << std::endl;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    TimerfdClock clock;
    const QStringList directories
        = argc > 1 ? QStringList{QString::fromLocal8Bit(argv[1])} : QStringList{u"/usr/bin"_s};
    LogindSleepControl control(QDBusConnection::systemBus(), QDBusConnection::sessionBus(), clock, directories);
    std::unique_ptr<SleepOverride> held;
    const QString wayland = qEnvironmentVariable("WAYLAND_DISPLAY");
    DesktopDisplayPower displays(QDBusConnection::sessionBus(),
        {.x11 = qEnvironmentVariableIsSet("DISPLAY") ? X11Connection::open(qgetenv("DISPLAY"), clock) : nullptr,
            .waylandSocket
            = wayland.isEmpty() ? QString() : QDir(qEnvironmentVariable("XDG_RUNTIME_DIR")).absoluteFilePath(wayland)},
        clock);

    const auto take = [&](std::unique_ptr<SleepOverride> taken, const QString& error) {
        held = std::move(taken);
        say(held ? u"taken"_s : u"not taken: "_s + error);
        if (!held)
            return;
        held->onLost = [&held] {
            say(u"lost"_s);
            held.reset();
        };
    };
    const auto obey = [&](const std::string& line) {
        if (line == "take") {
            control.takeOverride(take);
        } else if (line == "release") {
            held.reset();
            say(u"released"_s);
        } else if (line == "sleep") {
            control.sleepForClosedLid();
        } else if (line == "off") {
            displays.sleepNow([](const QString& error) { say(error.isEmpty() ? u"off"_s : u"not off: "_s + error); });
        } else if (line == "on") {
            displays.wake();
        }
    };
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        // What has come with the first line announces itself no more.
        do {
            std::string line;
            if (!std::getline(std::cin, line)) {
                QCoreApplication::quit();
                return;
            }
            obey(line);
        } while (std::cin.rdbuf()->in_avail() > 0);
    });
    return QCoreApplication::exec();
}
