// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusCalls.h"
#include "platform/Clock.h"

#include <QStringList>

#include <functional>
#include <memory>

namespace Tarvik {

/// One round of asking services on both buses: it starts when both have told who is there, and ends when everybody who
/// was asked has answered. It starts no service and follows none.
class ServiceRound final {
public:
    /// Who has not answered by then is not waited for.
    static constexpr Seconds patience{2.5};

    struct Bus {
        QDBusConnection connection;
        /// Of the services that may be asked.
        QStringList names;
    };

    /// Either bus may be without connection. Both functions are called once, from the event loop: `ask` to send the
    /// first questions, unless time is up before, and `end`, which may destroy the object. `clock` must outlive it.
    ServiceRound(Bus system, Bus session, Clock& clock, std::function<void()> ask, std::function<void()> end);
    ServiceRound(const ServiceRound&) = delete;
    ServiceRound& operator=(const ServiceRound&) = delete;

    /// Whether somebody has the name, on whichever bus.
    bool isThere(const QString& name) const { return m_systemNames.isOwned(name) || m_sessionNames.isOwned(name); }
    /// The unique name of its owner on the session bus; empty when there is none.
    QString sessionOwner(const QString& name) const { return m_sessionNames.owner(name); }

    using Take = std::function<void(const QDBusMessage& answer)>;

    /// `take` may ask on. It is not called any more when time is up.
    void askSystem(const QDBusMessage& question, Take take) { send(m_systemBus, question, std::move(take)); }
    void askSession(const QDBusMessage& question, Take take) { send(m_sessionBus, question, std::move(take)); }

private:
    void start();
    void send(const QDBusConnection& bus, const QDBusMessage& question, Take take);
    void end();

    QDBusConnection m_systemBus;
    QDBusConnection m_sessionBus;
    std::function<void()> m_ask;
    std::function<void()> m_end;
    BusNameWatch m_systemNames;
    BusNameWatch m_sessionNames;
    std::unique_ptr<Timer> m_patience;
    std::unique_ptr<Timer> m_start;
    DBusCalls m_calls;
};

} // namespace Tarvik
