// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/TimerfdClock.h"
#include "platform/linux/sleep/LogindSleepControl.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

#include <iostream>
#include <string>

// SleepProbe [PROGRAM_DIRECTORY]: does what each line that it reads says (take, release, sleep) and prints
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

    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        std::string line;
        if (!std::getline(std::cin, line)) {
            QCoreApplication::quit();
        } else if (line == "take") {
            control.takeOverride([&held](std::unique_ptr<SleepOverride> taken, const QString& error) {
                held = std::move(taken);
                say(held ? u"taken"_s : u"not taken: "_s + error);
                if (held)
                    held->onLost = [&held] {
                        say(u"lost"_s);
                        held.reset();
                    };
            });
        } else if (line == "release") {
            held.reset();
            say(u"released"_s);
        } else if (line == "sleep") {
            control.sleepForClosedLid();
        }
    });
    return QCoreApplication::exec();
}
