// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/PsProcess.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

namespace {

/// Enough for nearly every listing, so that the child never has to wait for us; also what an unprivileged process may
/// ask for by default, see pipe(7).
constexpr int pipeBytes = 1024 * 1024;
constexpr auto killTime = 100ms;

/// Nothing is inherited: COLUMNS, PS_FORMAT, PS_PERSONALITY and more of the kind change what ps prints, and a locale
/// without UTF-8 makes it print escapes.
ChildProcess::Command command(const std::string& executable, int output)
{
    return {.words = {executable, "-axww", "-o", "args="},
        .environment = {{"LC_ALL=C.UTF-8", "PATH=/usr/bin:/bin"}},
        .output = output};
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

    auto process = ChildProcess::start(command(executable, writeEnd.get()));
    if (!process)
        return nullptr;
    return std::unique_ptr<PsProcess>(new PsProcess(*std::move(process), std::move(readEnd), maximumBytes));
}

PsProcess::PsProcess(ChildProcess process, FileDescriptor pipe, qsizetype maximumBytes)
    : m_process(std::move(process))
    , m_pipe(std::move(pipe))
    , m_maximumBytes(maximumBytes)
{
}

PsProcess::~PsProcess()
{
    if (!m_process.isHeld())
        return;
    m_process.kill();
    // A child stuck in the kernel dies later than we may wait; the system reaps it after our own end.
    if (m_process.awaitEnd(killTime))
        m_process.reap();
}

bool PsProcess::readAvailable()
{
    int available = 0;
    if (ioctl(m_pipe.get(), FIONREAD, &available) != 0)
        return false;
    return available == 0 || append(available) >= 0;
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
