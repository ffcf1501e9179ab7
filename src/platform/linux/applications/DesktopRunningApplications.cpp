// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/applications/DesktopRunningApplications.h"

#include "platform/linux/applications/DesktopFiles.h"
#include "platform/linux/applications/SystemdUserApplications.h"
#include "platform/linux/applications/WaylandApplications.h"
#include "platform/linux/applications/X11Applications.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Tarvik {

using namespace std::chrono_literals;

namespace {

/// A launch shows in several sources, one after the other.
constexpr Seconds settlingTime = 200ms;

DesktopRunningApplications::Sources sourcesOf(const QDBusConnection& sessionBus,
    const DesktopRunningApplications::Displays& displays,
    DesktopFiles& files,
    Clock& clock)
{
    DesktopRunningApplications::Sources sources;
    sources.push_back(std::make_unique<SystemdUserApplications>(sessionBus));
    if (displays.x11 != nullptr)
        sources.push_back(std::make_unique<X11Applications>(displays.x11, files));
    const QString& socket = displays.waylandSocket;
    if (auto windows = socket.isEmpty() ? nullptr : WaylandApplications::connect(socket, files, clock))
        sources.push_back(std::move(windows));
    return sources;
}

} // namespace

DesktopRunningApplications::DesktopRunningApplications(
    const QDBusConnection& sessionBus, const Displays& displays, DesktopFiles& files, Clock& clock)
    : DesktopRunningApplications(sourcesOf(sessionBus, displays, files, clock), files, clock)
{
}

DesktopRunningApplications::DesktopRunningApplications(Sources sources, DesktopFiles& files, Clock& clock)
    : m_files(files)
    , m_clock(clock)
    , m_sources(std::move(sources))
{
    for (const auto& source : m_sources)
        m_changes.push_back(source->changed.subscribe([this] { updateLater(); }));
    m_changes.push_back(m_files.changed.subscribe([this] { updateLater(); }));
    updateLater();
}

DesktopRunningApplications::~DesktopRunningApplications() = default;

void DesktopRunningApplications::updateLater()
{
    if (m_timer == nullptr)
        m_timer = m_clock.after(settlingTime, [this] { update(); });
}

void DesktopRunningApplications::update()
{
    m_timer.reset();
    QList<RunningApplication> applications;
    for (const auto& source : m_sources) {
        for (RunningApplication& application : source->list()) {
            if (!application.id.isEmpty())
                application.localizedName = m_files.name(application.id).value_or(QString());
            applications.append(std::move(application));
        }
    }
    const auto key
        = [](const RunningApplication& application) { return std::tie(application.id, application.localizedName); };
    std::ranges::sort(applications, {}, key);
    const auto repeated = std::ranges::unique(applications);
    applications.erase(repeated.begin(), repeated.end());
    if (applications == m_applications)
        return;
    m_applications = std::move(applications);
    changed();
}

} // namespace Tarvik
