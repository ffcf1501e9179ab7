// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "app/UnixSignals.h"

#include <sys/signalfd.h>

#include <csignal>

namespace Tarvik {

namespace {

int openSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, signal);
    sigprocmask(SIG_BLOCK, &signals, nullptr);
    // Some launchers ignore it and that is inherited; then the system would reap our children before we could.
    std::signal(SIGCHLD, SIG_DFL);
    // Whoever reads the log may end before us, and a display server may in the middle of a request.
    std::signal(SIGPIPE, SIG_IGN);
    return signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

} // namespace

UnixSignals::UnixSignals(std::function<void()> onTermination)
    : m_descriptor(openSignals())
    , m_notifier(m_descriptor.get(), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this, action = std::move(onTermination)] {
        signalfd_siginfo information = {};
        if (read(m_descriptor.get(), &information, sizeof information) == sizeof information)
            action();
    });
}

} // namespace Tarvik
