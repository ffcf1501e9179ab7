// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
//
// tarvik-offline: Tarvik's own model on the session bus, of a machine that exists in memory only, so that its windows
// can be brought into any state; what they show is what the program really says.
//
// Prints "ready", then every request of the windows, one a line: "METHOD ARGUMENT..." or "set PROPERTY VALUE", without
// those that come whenever a window becomes active. Reads what the machine goes through from its input, one thing a
// line, as in tests/engine/traces/README.md, and besides:
//   session MINUTES         a timed session; 0 ends it
//   hooks fail|work         whether the files of agents without any can be written
//   install ID              installs the hooks of an agent
//   event ID                the hook of an agent tells of the end of a turn
//   updates on|off|checked  whether updates can be had; a check of which has just ended
//   updates CHANNEL         how they come instead: system, source or manual
//   upgrade                 another build of Tarvik is installed
//   others NAME;NAME;...    other programs of these names hold the machine awake
//   sleep SECONDS           the machine sleeps for so long
//   forget                  clears the journal
//   earlier SECONDS         sets the machine's clock back
// Prints "entered LINE" once all of its consequences have been announced, "unknown LINE" for any other line. The
// machine's clock starts at the present time and moves with "wait" only. Ends with its input.
#include "bus/ServedTarvik.h"
#include "bus/WindowRequest.h"
#include "core/Translation.h"
#include "engine/SteeredMachine.h"

#include <QAbstractEventDispatcher>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSocketNotifier>

#include <unistd.h>

#include <array>
#include <chrono>
#include <iostream>

using namespace Tarvik;
using namespace Qt::StringLiterals;

namespace {

void say(const QString& line)
{
    std::cout << line.toStdString() << std::endl;
}

class Offline {
public:
    Offline()
    {
        const Seconds present = std::chrono::system_clock::now().time_since_epoch();
        m_tarvik.machine.clock.setBack(m_tarvik.machine.clock.now().time_since_epoch() - present);
        m_tarvik.machine.settings->setLaunchAtLogin(true);
        m_tarvik.object->onMessage = [](const QDBusMessage& message) {
            const QString request = windowRequest(message);
            if (!request.isEmpty())
                say(request);
            if (message.member() == u"Quit"_s)
                QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        };
        QObject::connect(&m_input, &QSocketNotifier::activated, &m_input, [this] { read(); });
    }

private:
    void read()
    {
        std::array<char, 4096> bytes;
        const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) {
            QCoreApplication::quit();
            return;
        }
        m_read.append(bytes.data(), count);
        m_input.setEnabled(false);
        for (qsizetype end = m_read.indexOf('\n'); end >= 0; end = m_read.indexOf('\n')) {
            const QString line = QString::fromUtf8(m_read.left(end));
            m_read.remove(0, end + 1);
            const bool isKnown = play(line);
            settle();
            say((isKnown ? u"entered "_s : u"unknown "_s) + line);
        }
        m_input.setEnabled(true);
    }

    bool play(const QString& line)
    {
        const QString word = line.section(u' ', 0, 0);
        const QString value = line.section(u' ', 1);
        CoordinatedMachine& machine = m_tarvik.machine;
        if (word == u"session"_s) {
            const int minutes = value.toInt();
            machine.coordinator->setTimedSession(minutes > 0 ? std::optional(minutes) : std::nullopt);
            return true;
        }
        if (word == u"hooks"_s)
            return setFilesWritable(value == u"work"_s);
        if (word == u"install"_s) {
            const HookSpec* spec = HookSpec::find(value.toStdString());
            return spec != nullptr && machine.hookFiles.install(*spec);
        }
        if (word == u"event"_s) {
            machine.hook({{u"action"_s, u"release"_s}, {u"session"_s, u"any"_s}, {u"tool"_s, value}});
            return HookSpec::find(value.toStdString()) != nullptr;
        }
        if (word == u"others"_s) {
            m_tarvik.locks.current.locks.clear();
            for (const QString& name : value.split(u';', Qt::SkipEmptyParts)) {
                m_tarvik.locks.current.locks.append(
                    FakeSleepLocks::lock(name, u"logind"_s, SleepLockEffect::idleSleep));
            }
            return true;
        }
        if (word == u"sleep"_s)
            return sleep(Seconds{value.toInt()});
        if (word == u"updates"_s)
            return setUpdates(value);
        if (word == u"upgrade"_s) {
            m_tarvik.installUpgrade();
            return true;
        }
        if (word == u"earlier"_s) {
            machine.clock.setBack(Seconds{value.toInt()});
            return true;
        }
        if (word == u"forget"_s) {
            machine.journal->clear();
            return true;
        }
        return line != u"start"_s && m_steering.play(line);
    }

    bool sleep(Seconds duration)
    {
        const TimePoint from = m_tarvik.machine.clock.now();
        m_tarvik.machine.clock.standStill(duration);
        m_tarvik.sleepHistory.current = QList<PastSleep>{{from, m_tarvik.machine.clock.now()}};
        return duration > Seconds::zero();
    }

    bool setUpdates(const QString& state)
    {
        if (state == u"checked"_s) {
            m_tarvik.updater->checkForUpdates();
            m_tarvik.updateDriver.finish(true);
            return true;
        }
        const QString channel = state == u"on"_s ? u"available"_s : state == u"off"_s ? u"unknown"_s : state;
        return m_tarvik.updateDriver.become(channel);
    }

    /// A file stands where an agent keeps its folder, which stops root, too; those that have a folder keep it.
    bool setFilesWritable(bool on)
    {
        const QString home = m_tarvik.machine.home.path();
        for (const QString& folder : {u"/.claude"_s, u"/.codex"_s, u"/.gemini"_s}) {
            if (on)
                QFile::remove(home + folder);
            else if (!QFileInfo(home + folder).isDir() && !QFile(home + folder).open(QIODevice::WriteOnly))
                return false;
        }
        return true;
    }

    /// Until nothing follows any more and the bus has all that was announced.
    void settle()
    {
        while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) { }
        m_tarvik.bus.call(QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
    }

    ServedTarvik m_tarvik;
    SteeredMachine m_steering{m_tarvik.machine};
    QSocketNotifier m_input{STDIN_FILENO, QSocketNotifier::Read};
    QByteArray m_read;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const Translation translation(QStringLiteral(TARVIK_TRANSLATIONS), QLocale::system().uiLanguages());
    Offline offline;
    say(u"ready"_s);
    return QCoreApplication::exec();
}
