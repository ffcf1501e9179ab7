// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QList>
#include <QString>

namespace Tarvik {

/// One application of the desktop that is running now.
struct RunningApplication {
    /// Desktop-file id without ".desktop" (the bundle identifier here); empty when there is none.
    QString id;
    /// Name in the user's language, as the desktop shows it; empty when unknown.
    QString localizedName;

    bool operator==(const RunningApplication&) const = default;
};

/// The desktop's running applications, as opposed to mere processes.
class RunningApplications {
public:
    virtual ~RunningApplications() = default;

    /// What is known at this moment; never blocks.
    virtual QList<RunningApplication> list() const = 0;

    /// An application was launched or has terminated.
    Signal<void()> changed;
};

} // namespace Tarvik
