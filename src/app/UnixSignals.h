// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>

namespace Tarvik {

/// Turns the signals by which a session, a service manager or a terminal ends a program (SIGTERM, SIGINT, SIGHUP) into
/// a call from the event loop, see signalfd(2), and sees to it that children can be waited for, and that writing to
/// what nobody reads is an error and not the end. Must be made before any other thread, since threads inherit the mask.
class UnixSignals {
public:
    explicit UnixSignals(std::function<void()> onTermination);

private:
    FileDescriptor m_descriptor;
    QSocketNotifier m_notifier;
};

} // namespace Tarvik
