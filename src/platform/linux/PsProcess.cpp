// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/PsProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>

// Before 2.37, glibc's own header does not declare C linkage.
extern "C" {
#include <sys/pidfd.h>
}

namespace Tarvik {

namespace {

/// Enough for nearly every listing, so that the child never has to wait for us; also what an unprivileged process may
/// ask for by default, see pipe(7).
constexpr int pipeBytes = 1024 * 1024;
constexpr qsizetype blockingReadBytes = 64 * 1024;
constexpr int killMilliseconds = 100;

/// posix_spawn(3) with the standard input and error at the null device and the standard output at `output`.
std::optional<pid_t> spawn(const std::string& executable, int output)
{
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    // The output comes first: where this process runs without standard streams, it may itself have one of their
    // numbers.
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);

    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes, &signals);
    sigfillset(&signals);
    posix_spawnattr_setsigdefault(&attributes, &signals);

    std::string name = executable;
    std::string selection = "-axww";
    std::string option = "-o";
    std::string format = "args=";
    const std::array arguments{
        name.data(), selection.data(), option.data(), format.data(), static_cast<char*>(nullptr)};
    // Nothing is inherited: COLUMNS, PS_FORMAT, PS_PERSONALITY and more of the kind change what ps prints, and a locale
    // without UTF-8 makes it print escapes.
    std::string locale = "LC_ALL=C.UTF-8";
    std::string path = "PATH=/usr/bin:/bin";
    const std::array environment{locale.data(), path.data(), static_cast<char*>(nullptr)};

    pid_t child = -1;
    const int error
        = posix_spawn(&child, executable.c_str(), &actions, &attributes, arguments.data(), environment.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? std::optional(child) : std::nullopt;
}

} // namespace

std::unique_ptr<PsProcess> PsProcess::start(const std::string& executable, qsizetype maximumBytes)
{
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return nullptr;
    FileDescriptor readEnd(ends[0]);
    const FileDescriptor writeEnd(ends[1]);
    fcntl(readEnd.get(), F_SETPIPE_SZ, pipeBytes);

    const std::optional<pid_t> child = spawn(executable, writeEnd.get());
    if (!child)
        return nullptr;
    FileDescriptor pidfd(pidfd_open(*child, 0));
    if (!pidfd.isValid()) {
        kill(*child, SIGKILL);
        waitpid(*child, nullptr, 0);
        return nullptr;
    }
    return std::unique_ptr<PsProcess>(new PsProcess(std::move(pidfd), std::move(readEnd), maximumBytes));
}

PsProcess::PsProcess(FileDescriptor pidfd, FileDescriptor pipe, qsizetype maximumBytes)
    : m_pidfd(std::move(pidfd))
    , m_pipe(std::move(pipe))
    , m_maximumBytes(maximumBytes)
{
}

PsProcess::~PsProcess()
{
    if (m_reaped)
        return;
    pidfd_send_signal(m_pidfd.get(), SIGKILL, nullptr, 0);
    // A child stuck in the kernel dies later than we may wait; the system reaps it after our own end.
    pollfd exit{.fd = m_pidfd.get(), .events = POLLIN, .revents = 0};
    if (poll(&exit, 1, killMilliseconds) == 1)
        reap();
}

bool PsProcess::readAvailable()
{
    int available = 0;
    if (ioctl(m_pipe.get(), FIONREAD, &available) != 0)
        return false;
    return available == 0 || append(available) >= 0;
}

bool PsProcess::readToEnd()
{
    for (;;) {
        const qsizetype count = append(blockingReadBytes);
        if (count <= 0)
            return count == 0;
    }
}

bool PsProcess::reap()
{
    siginfo_t status{};
    int result = 0;
    do {
        result = waitid(P_PIDFD, static_cast<id_t>(m_pidfd.get()), &status, WEXITED);
    } while (result != 0 && errno == EINTR);
    m_reaped = true;
    return result == 0 && status.si_code == CLD_EXITED;
}

qsizetype PsProcess::append(qsizetype size)
{
    const qsizetype before = m_output.size();
    if (size > m_maximumBytes - before)
        return -1;
    m_output.resize(before + size);
    ssize_t count = 0;
    do {
        count = ::read(m_pipe.get(), m_output.data() + before, static_cast<std::size_t>(size));
    } while (count < 0 && errno == EINTR);
    m_output.resize(before + std::max<ssize_t>(count, 0));
    return count;
}

} // namespace Tarvik
