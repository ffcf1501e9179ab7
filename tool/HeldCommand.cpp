// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "HeldCommand.h"

#include "base/FileDescriptor.h"
#include "platform/HookWire.h"

#include <poll.h>
#include <spawn.h>
#include <sys/random.h>
#include <sys/signalfd.h>
#include <sys/timerfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>

namespace Tarvik {

static constexpr std::array passedOnSignals{SIGINT, SIGQUIT, SIGTERM, SIGHUP, SIGUSR1, SIGUSR2, SIGTSTP, SIGCONT};

/// Keeps the signals away from their default actions while it lives.
class HeldCommand::SignalBlock final {
public:
    SignalBlock()
    {
        sigemptyset(&m_signals);
        sigaddset(&m_signals, SIGCHLD);
        for (const int signal : passedOnSignals)
            sigaddset(&m_signals, signal);
        sigprocmask(SIG_BLOCK, &m_signals, &m_previous);
    }
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;
    ~SignalBlock()
    {
        // What the program has ended upon, or outlived, is not to end this process once more.
        constexpr timespec none{};
        while (sigtimedwait(&m_signals, nullptr, &none) > 0) { }
        sigprocmask(SIG_SETMASK, &m_previous, nullptr);
    }

    const sigset_t& signals() const { return m_signals; }
    const sigset_t& previous() const { return m_previous; }

private:
    sigset_t m_signals;
    sigset_t m_previous;
};

static std::string newSession()
{
    std::uint64_t random = 0;
    // A number that did not come is no reason not to run the program.
    [[maybe_unused]] const ssize_t count = getrandom(&random, sizeof(random), GRND_NONBLOCK);
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(random));
    return "hold:" + std::to_string(getpid()) + '-' + text.data();
}

static std::string baseName(const std::string& path)
{
    const std::size_t slash = path.find_last_of('/');
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    return name.empty() ? path : name;
}

static std::string secondsText(std::chrono::milliseconds time)
{
    if (time.count() % 1000 == 0)
        return std::to_string(time.count() / 1000);
    std::array<char, 32> text{};
    std::snprintf(text.data(),
        text.size(),
        "%lld.%03d",
        static_cast<long long>(time.count() / 1000),
        static_cast<int>(time.count() % 1000));
    return text.data();
}

HeldCommand::HeldCommand(
    std::vector<std::string> command, std::string reason, std::chrono::milliseconds period, Announce announce)
    : m_command(std::move(command))
    , m_period(period)
    , m_announce(std::move(announce))
    , m_session(newSession())
{
    m_lease.action = HookWire::acquireAction;
    m_lease.session = m_session;
    m_lease.tool = baseName(m_command.front());
    m_lease.ttl = secondsText(2 * period);
    m_lease.reason = std::move(reason);
}

void HeldCommand::acquire()
{
    if (m_announce(m_lease) || m_hasWarned)
        return;
    m_hasWarned = true;
    std::fprintf(
        stderr, "tarvik: no session bus answers, so nothing is kept awake while %s runs\n", m_lease.tool.c_str());
}

void HeldCommand::release()
{
    Announcement end;
    end.action = HookWire::releaseAction;
    end.session = m_session;
    end.tool = m_lease.tool;
    m_announce(end);
}

int HeldCommand::start(const SignalBlock& block)
{
    std::vector<char*> arguments;
    for (std::string& argument : m_command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &block.previous());
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    const int error = posix_spawnp(&m_child, arguments.front(), nullptr, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    return error;
}

void HeldCommand::passOnSignal(int signals) const
{
    signalfd_siginfo info{};
    if (read(signals, &info, sizeof(info)) != sizeof(info) || info.ssi_signo == SIGCHLD)
        return;
    // What the terminal sends reaches the program by itself, as it is in the same process group.
    const bool isFromProcess = info.ssi_code <= 0 && info.ssi_pid != static_cast<std::uint32_t>(m_child);
    if (isFromProcess)
        kill(m_child, static_cast<int>(info.ssi_signo));
}

void HeldCommand::followStop(int signal)
{
    release();
    // Somebody who stops just the program will also continue just the program; the terminal's user means both, and the
    // shell waits for this process to stop.
    if (signal == SIGSTOP)
        return;
    raise(SIGSTOP);
    kill(m_child, SIGCONT);
    acquire();
}

std::optional<int> HeldCommand::followChild()
{
    int status = 0;
    while (waitpid(m_child, &status, WNOHANG | WUNTRACED | WCONTINUED) == m_child) {
        if (WIFEXITED(status))
            return WEXITSTATUS(status);
        if (WIFSIGNALED(status))
            return 128 + WTERMSIG(status);
        if (WIFSTOPPED(status))
            followStop(WSTOPSIG(status));
        else if (WIFCONTINUED(status))
            acquire();
    }
    return {};
}

int HeldCommand::watch(const SignalBlock& block)
{
    const FileDescriptor signals(signalfd(-1, &block.signals(), SFD_CLOEXEC | SFD_NONBLOCK));
    // This clock goes on in suspend: after waking up, the lease is renewed at once.
    const FileDescriptor timer(timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    itimerspec schedule{};
    schedule.it_interval.tv_sec = m_period.count() / 1000;
    schedule.it_interval.tv_nsec = m_period.count() % 1000 * 1'000'000;
    schedule.it_value = schedule.it_interval;
    timerfd_settime(timer.get(), 0, &schedule, nullptr);

    while (true) {
        if (const auto status = followChild())
            return *status;
        std::array<pollfd, 2> events{{{signals.get(), POLLIN, 0}, {timer.get(), POLLIN, 0}}};
        poll(events.data(), events.size(), -1);
        if (events[0].revents != 0)
            passOnSignal(signals.get());
        std::uint64_t expirations = 0;
        if (events[1].revents != 0 && read(timer.get(), &expirations, sizeof(expirations)) > 0)
            acquire();
    }
}

int HeldCommand::run()
{
    const SignalBlock block;
    acquire();
    int status = 0;
    if (const int error = start(block)) {
        std::fprintf(stderr, "tarvik: cannot run %s: %s\n", m_command.front().c_str(), std::strerror(error));
        status = error == ENOENT ? 127 : 126;
    } else {
        status = watch(block);
    }
    release();
    return status;
}

} // namespace Tarvik
