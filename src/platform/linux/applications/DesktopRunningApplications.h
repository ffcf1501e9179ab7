// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/RunningApplications.h"

#include <QDBusConnection>
#include <QString>

#include <memory>
#include <vector>

namespace Tarvik {

class DesktopFiles;
class X11Connection;

/// The running applications of all sources as one list, sorted, each application once and with its localized name.
/// It is empty at first; a change shows 200 ms after its first sign, and only if it makes a difference.
class DesktopRunningApplications final : public RunningApplications {
public:
    using Sources = std::vector<std::unique_ptr<RunningApplications>>;

    /// Where windows are: an X server, and a compositor, by the absolute path of its socket. Either may be missing.
    struct Displays {
        std::shared_ptr<X11Connection> x11;
        QString waylandSocket;
    };

    /// The sources of this session: the systemd user manager and the windows on those displays that can be reached.
    /// `clock` and `files` must outlive the object.
    DesktopRunningApplications(
        const QDBusConnection& sessionBus, const Displays& displays, DesktopFiles& files, Clock& clock);
    /// `clock` and `files` must outlive the object.
    DesktopRunningApplications(Sources sources, DesktopFiles& files, Clock& clock);
    ~DesktopRunningApplications() override;

    DesktopRunningApplications(const DesktopRunningApplications&) = delete;
    DesktopRunningApplications& operator=(const DesktopRunningApplications&) = delete;

    QList<RunningApplication> list() const override { return m_applications; }

private:
    void updateLater();
    void update();

    DesktopFiles& m_files;
    Clock& m_clock;
    Sources m_sources;
    std::vector<Subscription> m_changes;
    QList<RunningApplication> m_applications;
    std::unique_ptr<Timer> m_timer;
};

} // namespace Tarvik
