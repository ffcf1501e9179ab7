// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusCalls.h"
#include "dbus/DBusSignal.h"

#include <QDBusConnection>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace Tarvik {

/// Whether the system bus can start the background helper, and whether it would be of use to this process: what the
/// bus, systemd and polkit say of it, followed. Starts polkit, and nothing without a helper.
class HelperAvailability final {
public:
    enum class State {
        /// The bus cannot start it.
        absent,
        /// An administrator has masked its unit, or polkit does not let this process use it without a password.
        blocked,
        usable,
    };

    /// Whoever does not answer within this time is taken to have nothing against it; without the bus it is absent.
    static constexpr std::chrono::seconds patience{5};

    /// `label` is the helper's name on the bus.
    HelperAvailability(const QDBusConnection& systemBus, QString label);
    HelperAvailability(const HelperAvailability&) = delete;
    HelperAvailability& operator=(const HelperAvailability&) = delete;

    /// Nothing before everybody has answered for the first time.
    std::optional<State> state() const { return m_state; }

    /// Asks everybody anew; `done` is called later, when `state()` is from after this call.
    void read(std::function<void()> done = {});

    /// `state()` has another value.
    std::function<void()> onChange;

private:
    using Receiver = void (HelperAvailability::*)(const QDBusMessage& answer);

    void follow();
    void ask();
    void send(const QDBusMessage& question, Receiver take, bool startsService = false);
    void takeNames(const QDBusMessage& answer);
    void takeUnitState(const QDBusMessage& answer);
    void takeAuthorization(const QDBusMessage& answer);
    void finish();

    QDBusConnection m_bus;
    QString m_label;
    BusNameWatch m_names;
    std::optional<State> m_state;
    State m_reading = State::absent;
    bool m_readsAgain = false;
    bool m_isLossTold = false;
    /// For the reading that goes on, and for the next one.
    std::vector<std::function<void()>> m_waiting;
    std::vector<std::function<void()>> m_waitingLonger;
    DBusCalls m_questions;
    DBusCall m_subscribing;
    DBusSignal m_loss;
    DBusSignal m_busChanges;
    std::optional<DBusSignal> m_unitFileChanges;
    std::optional<DBusSignal> m_reloads;
    std::optional<DBusSignal> m_polkitChanges;
};

} // namespace Tarvik
