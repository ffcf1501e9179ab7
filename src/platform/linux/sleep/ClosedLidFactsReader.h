// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusCalls.h"
#include "platform/linux/sleep/ClosedLidRules.h"

#include <QDBusConnection>

#include <functional>
#include <optional>

namespace Tarvik {

/// Asks logind, systemd and the desktop who acts on a closed lid.
class ClosedLidFactsReader final {
public:
    /// Nothing where logind does not answer.
    using Receiver = std::function<void(const std::optional<ClosedLidFacts>& facts)>;

    ClosedLidFactsReader(QDBusConnection systemBus, QDBusConnection sessionBus);
    ClosedLidFactsReader(const ClosedLidFactsReader&) = delete;
    ClosedLidFactsReader& operator=(const ClosedLidFactsReader&) = delete;

    /// `done` is called later and may destroy the object. An earlier question is dropped.
    void read(Receiver done);

private:
    void ask();
    void askDaemon(const QVariantMap& manager);
    void finish(const std::optional<ClosedLidFacts>& facts);

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    Receiver m_done;
    std::optional<BusNameWatch> m_names;
    std::optional<DBusCalls> m_calls;
    ClosedLidFacts m_facts;
    std::optional<QList<LogindInhibitor>> m_inhibitors;
    std::optional<QVariantMap> m_manager;
    DBusCall m_version;
};

} // namespace Tarvik
