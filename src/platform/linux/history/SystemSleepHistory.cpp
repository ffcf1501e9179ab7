// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/history/SystemSleepHistory.h"

#include "dbus/BusNames.h"
#include "platform/linux/history/JournalSleeps.h"
#include "platform/linux/kernel/SysfsFile.h"

#include <QFile>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

namespace Tarvik {

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumSleeps = 20;
/// That many entries are some kilobytes. It is what a pipe takes in, so that the program never waits for us.
constexpr qsizetype maximumBytes = 64 * 1024;

QByteArray contentOf(const FileDescriptor& pipe)
{
    QByteArray content(maximumBytes, Qt::Uninitialized);
    qsizetype size = 0;
    ssize_t count = 0;
    while ((count = ::read(pipe.get(), content.data() + size, static_cast<std::size_t>(maximumBytes - size))) > 0)
        size += count;
    content.truncate(size);
    return content;
}

} // namespace

SystemSleepHistory::SystemSleepHistory(QDBusConnection systemBus, Clock& clock, Journal journal)
    : m_systemBus(std::move(systemBus))
    , m_clock(clock)
    , m_journal(std::move(journal))
    , m_names(m_systemBus, {BusNames::logind})
{
    m_names.onKnown = [this] { follow(); };
    m_names.onOwnerChange = [this](const QString&) { follow(); };
}

SystemSleepHistory::~SystemSleepHistory()
{
    stop();
}

void SystemSleepHistory::follow()
{
    m_announcements.reset();
    if (!m_names.isOwned(BusNames::logind))
        return;
    m_announcements = std::make_unique<DBusSignal>(m_systemBus,
        DBusSignal::Source{m_names.owner(BusNames::logind),
            u"/org/freedesktop/login1"_s,
            u"org.freedesktop.login1.Manager"_s,
            u"PrepareForSleep"_s,
            {}},
        [this](const QDBusMessage& signal) {
            if (signal.signature() == "b"_L1)
                take(signal.arguments().constFirst().toBool());
        });
}

void SystemSleepHistory::take(bool isBeginning)
{
    if (isBeginning)
        m_announced.append({.from = m_clock.now(), .until = {}});
    else if (!m_announced.isEmpty() && !m_announced.constLast().until)
        m_announced.last().until = m_clock.now();
    if (m_announced.size() > maximumSleeps)
        m_announced.removeFirst();
}

void SystemSleepHistory::read(Receiver done)
{
    m_receivers.push_back(std::move(done));
    if (m_receivers.size() > 1)
        return;
    const bool isStarted = mayReadJournal() && start();
    m_end = m_clock.after(isStarted ? patience : Seconds::zero(), [this] { finish(false); });
}

bool SystemSleepHistory::mayReadJournal() const
{
    const auto machine = SysfsFile::text(u"/etc/machine-id"_s);
    return machine && std::ranges::any_of(m_journal.directories, [&](const QString& directory) {
        const QString file = directory + u'/' + QString::fromLatin1(*machine) + u"/system.journal"_s;
        return access(QFile::encodeName(file).constData(), R_OK) == 0;
    });
}

bool SystemSleepHistory::start()
{
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return false;
    m_output = FileDescriptor(ends[0]);
    const FileDescriptor writeEnd(ends[1]);
    fcntl(m_output.get(), F_SETFL, O_NONBLOCK);
    m_program = StartedProgram::start({.words = JournalSleeps::command(m_journal.program, maximumSleeps),
                                          .environment = {{"LC_ALL=C.UTF-8", "PATH=/usr/bin:/bin"}},
                                          .output = writeEnd.get(),
                                          .hasOwnSession = true},
        [this](std::optional<int> status) { finish(status == 0); });
    return m_program != nullptr;
}

void SystemSleepHistory::finish(bool hasEnded)
{
    m_end.reset();
    const auto sleeps = hasEnded ? JournalSleeps::in(contentOf(m_output)) : announced();
    stop();
    for (const Receiver& receiver : std::exchange(m_receivers, {}))
        receiver(sleeps);
}

void SystemSleepHistory::stop()
{
    if (m_program)
        StartedProgram::end(std::move(m_program));
    m_program.reset();
    m_output.reset();
}

std::optional<QList<PastSleep>> SystemSleepHistory::announced() const
{
    return m_announced.isEmpty() ? std::nullopt : std::optional(m_announced);
}

} // namespace Tarvik
