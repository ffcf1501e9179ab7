// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/screenlock/DesktopScreenLock.h"

#include "dbus/BusNames.h"

#include <QStandardPaths>

#include <array>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

struct LockCall {
    /// What the answer says about the screen.
    enum class Proof { none, reply, trueInReply };

    QString service;
    QString path;
    QString interface;
    QString method = u"Lock"_s;
    QVariantList arguments{};
    Proof proof = Proof::none;
};

/// A service that is not there is an error at once, and so are GNOME's refusal of the last call and KDE's path anywhere
/// else: nobody has to know which desktop this is.
const std::array calls{
    LockCall{.service = BusNames::logind,
        .path = u"/org/freedesktop/login1/session/auto"_s,
        .interface = u"org.freedesktop.login1.Session"_s},
    LockCall{.service = BusNames::gnomeScreenSaver,
        .path = u"/org/gnome/ScreenSaver"_s,
        .interface = BusNames::gnomeScreenSaver},
    LockCall{.service = BusNames::screenSaver,
        .path = u"/ScreenSaver"_s,
        .interface = BusNames::screenSaver,
        .proof = LockCall::Proof::reply},
    LockCall{.service = BusNames::xfceSessionManager,
        .path = u"/org/xfce/SessionManager"_s,
        .interface = u"org.xfce.Session.Manager"_s,
        .proof = LockCall::Proof::trueInReply},
    LockCall{.service = BusNames::mateScreenSaver, .path = u"/"_s, .interface = BusNames::mateScreenSaver},
    LockCall{.service = BusNames::cinnamonScreenSaver,
        .path = u"/org/cinnamon/ScreenSaver"_s,
        .interface = BusNames::cinnamonScreenSaver,
        .arguments = {QString()}},
    LockCall{.service = BusNames::screenSaver,
        .path = u"/org/freedesktop/ScreenSaver"_s,
        .interface = BusNames::screenSaver},
};

bool proves(LockCall::Proof proof, const QDBusMessage& answer)
{
    return proof == LockCall::Proof::reply
        || (proof == LockCall::Proof::trueInReply && answer.signature() == "b"_L1
            && answer.arguments().constFirst().toBool());
}

} // namespace

DesktopScreenLock::DesktopScreenLock(
    QDBusConnection systemBus, QDBusConnection sessionBus, Clock& clock, QList<Command> commands)
    : m_systemBus(std::move(systemBus))
    , m_sessionBus(std::move(sessionBus))
    , m_clock(clock)
    , m_commands(std::move(commands))
    , m_probe(m_systemBus, m_sessionBus)
{
}

QList<DesktopScreenLock::Command> DesktopScreenLock::defaultCommands()
{
    return {
        {.program = u"xdg-screensaver"_s, .arguments = {u"lock"_s}},
        {.program = u"swaylock"_s, .arguments = {u"-f"_s}, .proof = Command::Proof::exit, .lockedStatus = 2},
        {.program = u"hyprlock"_s, .arguments = {}, .proof = Command::Proof::staying},
    };
}

void DesktopScreenLock::lock(std::function<void(const QString& error)> done)
{
    m_waiting.push_back(std::move(done));
    if (m_waiting.size() > 1)
        return;
    m_next = 0;
    m_wasAccepted = false;
    tryNext();
}

void DesktopScreenLock::tryNext()
{
    const std::size_t index = m_next++;
    if (index < calls.size()) {
        call(index);
    } else if (index < calls.size() + static_cast<std::size_t>(m_commands.size())) {
        start(m_commands.at(static_cast<qsizetype>(index - calls.size())));
    } else {
        finish(m_wasAccepted ? u"no screen locker has confirmed that it is locked"_s
                             : u"no screen locker could be reached"_s);
    }
}

void DesktopScreenLock::call(std::size_t index)
{
    const LockCall& way = calls.at(index);
    const bool isLogind = way.service == BusNames::logind;
    auto message = QDBusMessage::createMethodCall(way.service, way.path, way.interface, way.method);
    message.setArguments(way.arguments);
    giveTime([this] { tryNext(); });
    m_call = callAsync(isLogind ? m_systemBus : m_sessionBus, message, [this, proof = way.proof](const auto& answer) {
        m_call.reset();
        if (answer.type() != QDBusMessage::ReplyMessage) {
            tryNext();
            return;
        }
        m_wasAccepted = true;
        if (proves(proof, answer))
            finish({});
        else
            probe();
    });
}

void DesktopScreenLock::start(const Command& command)
{
    using Proof = Command::Proof;
    giveTime([this, proof = command.proof] {
        if (proof == Proof::staying)
            finish({});
        else
            tryNext();
    });
    const QString executable = QStandardPaths::findExecutable(command.program);
    if (executable.isEmpty()) {
        tryNext();
        return;
    }
    auto running = StartedProgram::start(StartedProgram::command(executable, command.arguments),
        [this, proof = command.proof, lockedStatus = command.lockedStatus, way = m_next](std::optional<int> status) {
            const bool succeeded = status == 0 || status == lockedStatus;
            std::erase_if(m_running, [](const auto& one) { return !one->isRunning(); });
            // It may have taken longer than it was given.
            if (m_waiting.empty() || m_next != way)
                return;
            m_wasAccepted = m_wasAccepted || succeeded;
            if (!succeeded || proof == Proof::staying)
                tryNext();
            else if (proof == Proof::exit)
                finish({});
            else
                probe();
        });
    if (running)
        m_running.push_back(std::move(running));
    else
        tryNext();
}

void DesktopScreenLock::giveTime(std::function<void()> onTimeout)
{
    m_call.reset();
    m_polling = m_clock.every(pollingPeriod, [this] { probe(); });
    m_timeout = m_clock.after(patience, std::move(onTimeout));
}

void DesktopScreenLock::probe()
{
    m_probe.ask([this] { finish({}); });
}

void DesktopScreenLock::finish(const QString& error)
{
    m_call.reset();
    m_polling.reset();
    m_timeout.reset();
    m_probe.cancel();
    for (const auto& done : std::exchange(m_waiting, {}))
        done(error);
}

} // namespace Tarvik
