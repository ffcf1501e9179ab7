// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusSignal.h"
#include "platform/Clock.h"

#include <functional>
#include <memory>
#include <vector>

namespace Tarvik {

/// Announces one org.kde.StatusNotifierItem to whichever org.kde.StatusNotifierWatcher there is, and again to each that
/// appears later. The item is announced under a bus name of its own, so that trays drop it as soon as this object
/// ends. A watcher may refuse the item or lose one that it has accepted, as GNOME's does now and then while it is
/// starting: it is asked a second later, and told again where the item is missing.
class TrayHostRegistration final {
public:
    static constexpr Seconds settlingTime{1};
    static constexpr int maximumRepetitions = 5;

    /// `clock` must outlive the object.
    TrayHostRegistration(QDBusConnection sessionBus, Clock& clock);
    ~TrayHostRegistration();
    TrayHostRegistration(const TrayHostRegistration&) = delete;
    TrayHostRegistration& operator=(const TrayHostRegistration&) = delete;

    /// A watcher lists the item and knows of a tray that shows items.
    bool hasHost() const { return m_hasHost; }

    /// `hasHost` has changed.
    std::function<void()> onHostChange;

private:
    void requestOwnName();
    void followWatcher();
    void announce();
    void checkSoon();
    void check();
    void repeat();
    void lookAgain();
    void askWatcher(std::function<void()> onMissing);
    bool isAmong(const QStringList& items) const;
    void setHasHost(bool hasHost);

    QDBusConnection m_bus;
    Clock& m_clock;
    BusNameWatch m_watcher;
    /// Of the watcher that there is now.
    std::vector<std::unique_ptr<DBusSignal>> m_changes;
    /// What the item is announced as; empty until the bus has answered.
    QString m_name;
    bool m_isAnnounced = false;
    /// Of the announcement to the watcher that there is now.
    int m_repetitions = 0;
    bool m_hasHost = false;
    DBusCall m_nameCall;
    DBusCall m_announcement;
    DBusCall m_watcherCall;
    std::unique_ptr<Timer> m_check;
};

} // namespace Tarvik
