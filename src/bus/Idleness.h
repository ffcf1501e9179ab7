// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QObject>

namespace Tarvik {

class AwakeCoordinator;
class HookMonitor;
class UiProcess;
class Updater;

/// Whether Tarvik could end and start anew without anybody missing anything: all that it remembers is on the disk, all
/// that it sees it would see again.
class Idleness : public QObject {
    Q_OBJECT

public:
    /// What there is to lose; all of it must outlive the object.
    struct Sources {
        const AwakeCoordinator& coordinator;
        const HookMonitor& hooks;
        const Updater& updater;
        UiProcess& ui;
    };

    explicit Idleness(const Sources& sources);

    bool isIdle() const;

Q_SIGNALS:
    /// `isIdle()` may have another answer.
    void changed();

private:
    Sources m_sources;
    Subscription m_windows;
};

} // namespace Tarvik
