// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QString>

namespace Tarvik {

/// Starts the process that shows the windows.
class UiLauncher {
public:
    virtual ~UiLauncher() = default;

    /// Whether there is such a program; the windows come in a package of their own.
    virtual bool isInstalled() const = 0;
    /// Starts the process; does nothing while one that was started here still runs.
    virtual void launch() = 0;
    /// Ends a process that no longer answers, by force. Its end is reported as any other.
    virtual void kill() = 0;

    /// The process could not be started or has ended; `failure` says what went wrong and is empty after a good end.
    Signal<void(const QString& failure)> ended;
};

} // namespace Tarvik
