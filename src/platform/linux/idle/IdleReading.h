// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/IdleSleep.h"
#include "platform/linux/idle/KdeIdleRule.h"
#include "platform/linux/idle/XfceIdleRule.h"
#include "platform/linux/kernel/OwnProcesses.h"
#include "platform/linux/services/ServiceRound.h"

#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace Tarvik {

/// One round of asking all services that are there what they do without activity.
class IdleReading final {
public:
    struct Desktop {
        /// Of Plasma, as in KdeIdleRule::Facts.
        int plasmaRelease = 0;
        /// Of configuration files, the user's first.
        QStringList configDirectories = {};
        /// The kernel's, proc_cmdline(5).
        QString commandLine = {};
        /// Must be given.
        OwnProcesses::Names processes = {};
    };

    /// `done` is called once, later, and may destroy the object. `clock` must outlive it.
    IdleReading(const QDBusConnection& systemBus,
        const QDBusConnection& sessionBus,
        Desktop desktop,
        Clock& clock,
        std::function<void(const QList<IdleSleepRule>& rules)> done);
    IdleReading(const IdleReading&) = delete;
    IdleReading& operator=(const IdleReading&) = delete;

private:
    void ask();
    void askLogind();
    void askDesktop();
    void askKde();
    void askXfce();
    void finish();
    QList<IdleSleepRule> rulesOfDesktop() const;

    Desktop m_desktop;
    std::function<void(const QList<IdleSleepRule>& rules)> m_done;
    /// Of logind's manager.
    std::optional<QVariantMap> m_manager;
    bool m_isOnMains = true;
    bool m_isVirtualMachine = false;
    KdeIdleRule::Facts m_kde;
    XfceIdleRule::Settings m_xfce;
    /// Its settings could be read.
    bool m_isXfceKnown = false;
    ServiceRound m_round;
};

} // namespace Tarvik
