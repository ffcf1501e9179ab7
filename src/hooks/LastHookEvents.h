// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QMap>
#include <QObject>
#include <QString>

namespace Tarvik {

class HookMonitor;
class SettingsStore;

/// When the hook of each agent was last heard of, which shows whether it works. Outlives the process: an event is
/// stored when a quarter of an hour has passed since the one that is, and every other one at the end; so after a crash
/// a time may be that much too early, but never too late.
class LastHookEvents final : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the object.
    LastHookEvents(HookMonitor& monitor, SettingsStore& store);
    ~LastHookEvents() override;

    LastHookEvents(const LastHookEvents&) = delete;
    LastHookEvents& operator=(const LastHookEvents&) = delete;

    /// By the ids of agents of HookSpec; one that was never heard of is not among them.
    const QMap<QString, TimePoint>& times() const { return m_times; }

    /// A hook that is new in the agent's file has yet to show that it works.
    void forget(const QString& id);

Q_SIGNALS:
    void timesChanged();

private:
    void note(const QString& tool, TimePoint at);
    void save();

    SettingsStore& m_store;
    QMap<QString, TimePoint> m_times;
    QMap<QString, TimePoint> m_stored;
};

} // namespace Tarvik
