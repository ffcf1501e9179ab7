// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "base/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

// Before 2.37, glibc's own header does not declare C linkage.
extern "C" {
#include <sys/pidfd.h>
}

namespace Tarvik {

namespace {

constexpr auto nowhere = "/dev/null";

/// As execve(2) wants them; they point into `texts`.
std::vector<char*> pointers(std::vector<std::string>& texts)
{
    std::vector<char*> result;
    result.reserve(texts.size() + 1);
    for (std::string& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

std::optional<pid_t> spawn(ChildProcess::Command command)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // The output comes first: where this process runs without standard streams, it may itself have one of their
    // numbers.
    if (command.output >= 0)
        posix_spawn_file_actions_adddup2(&actions, command.output, STDOUT_FILENO);
    else
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, nowhere, O_WRONLY, 0);
    if (command.input >= 0)
        posix_spawn_file_actions_adddup2(&actions, command.input, STDIN_FILENO);
    else
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, nowhere, O_RDONLY, 0);
    if (command.hasErrorsInOutput)
        posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    else
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, nowhere, O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    const int session = command.hasOwnSession ? POSIX_SPAWN_SETSID : 0;
    posix_spawnattr_setflags(&attributes, static_cast<short>(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | session));
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);

    const std::vector<char*> words = pointers(command.words);
    std::vector<char*> environment;
    if (command.environment)
        environment = pointers(*command.environment);
    pid_t child = -1;
    const int error = posix_spawn(
        &child, words.front(), &actions, &attributes, words.data(), command.environment ? environment.data() : environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? std::optional(child) : std::nullopt;
}

} // namespace

std::optional<ChildProcess> ChildProcess::start(Command command)
{
    const std::optional<pid_t> child = spawn(std::move(command));
    if (!child)
        return {};
    FileDescriptor pidfd(pidfd_open(*child, 0));
    if (!pidfd.isValid()) {
        ::kill(*child, SIGKILL);
        waitpid(*child, nullptr, 0);
        return {};
    }
    return ChildProcess(std::move(pidfd));
}

ChildProcess::ChildProcess(FileDescriptor pidfd)
    : m_pidfd(std::move(pidfd))
{
}

void ChildProcess::kill() const
{
    pidfd_send_signal(m_pidfd.get(), SIGKILL, nullptr, 0);
}

bool ChildProcess::awaitEnd(std::chrono::milliseconds patience) const
{
    pollfd end{.fd = m_pidfd.get(), .events = POLLIN, .revents = 0};
    return poll(&end, 1, static_cast<int>(patience.count())) == 1;
}

std::optional<int> ChildProcess::reap()
{
    siginfo_t status{};
    int result = 0;
    do {
        result = waitid(P_PIDFD, static_cast<id_t>(m_pidfd.get()), &status, WEXITED);
    } while (result != 0 && errno == EINTR);
    m_pidfd.reset();
    return result == 0 && status.si_code == CLD_EXITED ? std::optional(status.si_status) : std::nullopt;
}

} // namespace Tarvik
