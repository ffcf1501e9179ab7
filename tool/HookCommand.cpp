// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "HookCommand.h"

#include "HookEvent.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <exception>

namespace Tarvik {

using namespace std::chrono_literals;

// Everything together stays below a quarter of a second, which nobody notices before an answer that takes seconds.
static constexpr auto inputTime = 140ms;
static constexpr auto totalTime = 200ms;
static constexpr auto hardLimit = 230ms;
static constexpr std::size_t maximumInput = std::size_t(1024) * 1024;

static void endInSilence(int)
{
    _exit(0);
}

static void handle(int signal, void (*handler)(int))
{
    struct sigaction action { };
    action.sa_handler = handler;
    sigaction(signal, &action, nullptr);
}

static void silence()
{
    // What a library prints on its way down would be taken for an answer, by one agent even for an answer to the model.
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (null < 0)
        return;
    dup2(null, STDOUT_FILENO);
    dup2(null, STDERR_FILENO);
    if (null > STDERR_FILENO)
        close(null);
}

void HookCommand::guardProcess()
{
    silence();
    std::set_terminate([] { _exit(0); });
    for (const int crash : {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGSYS, SIGALRM})
        handle(crash, endInSilence);
    // One agent runs its hooks in its own process group: the user's Ctrl-C must not lose the end of the turn.
    // From a terminal that is somebody else's at the moment, reading then fails, instead of stopping this process.
    for (const int interruption : {SIGINT, SIGHUP, SIGPIPE, SIGTTIN})
        handle(interruption, SIG_IGN);
    handle(SIGTERM, SIG_DFL);

    sigset_t needed;
    sigemptyset(&needed);
    sigaddset(&needed, SIGTERM);
    sigaddset(&needed, SIGALRM);
    sigprocmask(SIG_UNBLOCK, &needed, nullptr);

    itimerval limit{};
    limit.it_value.tv_usec = std::chrono::microseconds(hardLimit).count();
    setitimer(ITIMER_REAL, &limit, nullptr);
}

HookCommand::HookCommand(std::string tool, Environment environment)
    : m_tool(std::move(tool))
    , m_environment(std::move(environment))
{
}

static bool endsAnObject(std::string_view text)
{
    const std::size_t last = text.find_last_not_of(" \t\r\n");
    return last != std::string_view::npos && text[last] == '}';
}

/// Reads the payload that the agent writes, to its end, or to the end of its object when the agent then keeps silent.
static HookPayload readPayload(int descriptor, Deadline deadline)
{
    std::string text;
    std::array<char, std::size_t(64) * 1024> chunk;
    pollfd input{descriptor, POLLIN, 0};
    while (!deadline.hasPassed()) {
        if (poll(&input, 1, 0) == 0) {
            if (endsAnObject(text)) {
                HookPayload payload = readHookPayload(text);
                if (payload.isComplete)
                    return payload;
            }
            if (poll(&input, 1, static_cast<int>(deadline.remaining().count())) <= 0)
                continue;
        }
        const ssize_t count = read(descriptor, chunk.data(), chunk.size());
        if (count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN))
            break;
        if (count > 0)
            text.append(chunk.data(), std::min(static_cast<std::size_t>(count), maximumInput - text.size()));
    }
    return readHookPayload(text);
}

int HookCommand::run()
{
    const Deadline deadline(totalTime);
    const InvokingUser user = invokingUser(m_environment, geteuid(), getegid());
    if (!becomeInvokingUser(user))
        return 0;
    const HookPayload payload = readPayload(STDIN_FILENO, deadline.atMost(inputTime));
    if (const auto announcement = hookAnnouncement(m_tool, payload, m_environment))
        announce(*announcement, sessionBusCandidates(m_environment, user.user), user.user, deadline);
    return 0;
}

} // namespace Tarvik
