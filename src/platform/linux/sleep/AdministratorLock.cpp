// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/sleep/AdministratorLock.h"

#include "dbus/BusNames.h"

#include <QStandardPaths>
#include <QUuid>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

/// As pkexec(1) says.
constexpr int dismissed = 126;
constexpr int notAuthorised = 127;

constexpr std::array programs{u"pkexec", u"systemd-run", u"systemd-inhibit", u"cat"};

QString failureText(std::optional<int> status)
{
    if (!status)
        return u"pkexec was killed"_s;
    switch (*status) {
    case dismissed:
        return u"the question for an administrator’s password was dismissed"_s;
    case notAuthorised:
        return u"not authorised to act as an administrator"_s;
    default:
        return u"systemd-run has ended with status %1"_s.arg(*status);
    }
}

/// The read end, then the write end; both invalid when there is none.
std::pair<FileDescriptor, FileDescriptor> makePipe()
{
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return {};
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

QStringList commandLine(const QStringList& executables, const InhibitorRequest& request)
{
    const QString unit = u"tarvik-lid-%1-%2"_s.arg(getuid()).arg(QUuid::createUuid().toString(QUuid::Id128));
    return {u"--disable-internal-agent"_s,
        executables.at(1),
        u"--quiet"_s,
        u"--collect"_s,
        u"--pipe"_s,
        u"--unit="_s + unit,
        u"--property=Type=exec"_s,
        executables.at(2),
        u"--what="_s + request.arguments.at(0).toString(),
        u"--who="_s + request.arguments.at(1).toString(),
        u"--why="_s + request.arguments.at(2).toString(),
        u"--mode="_s + request.arguments.at(3).toString(),
        executables.at(3)};
}

} // namespace

AdministratorLock::AdministratorLock(
    QDBusConnection systemBus, InhibitorRequest request, QStringList programDirectories)
    : m_systemBus(std::move(systemBus))
    , m_request(std::move(request))
    , m_programDirectories(std::move(programDirectories))
    , m_logind(m_systemBus, {BusNames::logind})
{
    // A new one finds its predecessor's locks again.
    m_logind.onOwnerChange = [this](const QString& name) {
        if (m_done || !m_logind.isOwned(name))
            return;
        check([this](bool isListed) {
            if (!isListed)
                lose();
        });
    };
}

AdministratorLock::~AdministratorLock()
{
    // As long as the question stands, pkexec can be killed; after that cat ends, and all others with it.
    m_input.reset();
    if (m_program)
        StartedProgram::end(std::move(m_program));
}

void AdministratorLock::take(std::function<void(const QString& error)> done)
{
    m_done = std::move(done);
    QStringList executables;
    for (const char16_t* name : programs) {
        const QString program = QString::fromUtf16(name);
        executables.append(QStandardPaths::findExecutable(program, m_programDirectories));
        if (executables.constLast().isEmpty()) {
            finish(program + u" is not installed"_s);
            return;
        }
    }
    auto [childInput, input] = makePipe();
    auto [output, childOutput] = makePipe();
    // cat echoes this as soon as it runs, and it runs only once the lock is held.
    if (!input.isValid() || !output.isValid() || write(input.get(), "\n", 1) != 1) {
        finish(u"there is no pipe to be had"_s);
        return;
    }
    auto command = StartedProgram::command(executables.constFirst(), commandLine(executables, m_request));
    command.input = childInput.get();
    command.output = childOutput.get();
    m_input = std::move(input);
    m_output = std::move(output);
    m_notifier = std::make_unique<QSocketNotifier>(m_output.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { hear(); });
    m_program = StartedProgram::start(std::move(command), [this](std::optional<int> status) { end(status); });
    if (!m_program)
        finish(u"pkexec cannot be started"_s);
}

void AdministratorLock::hear()
{
    m_notifier->setEnabled(false);
    char echo = 0;
    if (read(m_output.get(), &echo, 1) != 1)
        return;
    check([this](bool isListed) { finish(isListed ? QString() : u"logind does not list the lock"_s); });
}

void AdministratorLock::check(std::function<void(bool isListed)> done)
{
    m_check = callAsync(m_systemBus, LogindInhibitors::list(), [this, done = std::move(done)](const auto& answer) {
        const auto inhibitors = LogindInhibitors::listIn(answer).value_or(QList<LogindInhibitor>{});
        done(std::ranges::any_of(inhibitors, [this](const LogindInhibitor& inhibitor) { return isOurs(inhibitor); }));
    });
}

bool AdministratorLock::isOurs(const LogindInhibitor& inhibitor) const
{
    constexpr std::uint32_t root = 0;
    // logind lists them in an order of its own.
    const QStringList what = m_request.arguments.at(0).toString().split(u':');
    return inhibitor.user == root && inhibitor.blocks && inhibitor.who == m_request.arguments.at(1).toString()
        && std::ranges::all_of(what, [&](const QString& one) { return inhibitor.what.contains(one); });
}

void AdministratorLock::end(std::optional<int> status)
{
    if (m_done)
        finish(failureText(status));
    else
        lose();
}

void AdministratorLock::finish(const QString& error)
{
    if (const auto done = std::exchange(m_done, {}))
        done(error);
}

void AdministratorLock::lose()
{
    if (const auto lost = std::exchange(onLost, {}))
        lost();
}

} // namespace Tarvik
