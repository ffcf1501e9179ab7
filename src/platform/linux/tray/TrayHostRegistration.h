// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbus/BusNameWatch.h"

#include <QObject>

namespace Tarvik {

/// Announces one org.kde.StatusNotifierItem to whichever org.kde.StatusNotifierWatcher there is, and again to each that
/// appears later. The item is announced under a bus name of its own, so that panels drop it as soon as this object
/// ends.
class TrayHostRegistration final : public QObject {
    Q_OBJECT

public:
    explicit TrayHostRegistration(QDBusConnection sessionBus);
    ~TrayHostRegistration() override;

    /// A watcher has accepted the item and knows of a panel that shows items.
    bool hasHost() const { return m_hasHost; }

    /// `hasHost` has changed.
    std::function<void()> onHostChange;

private Q_SLOTS:
    void askForHost();

private:
    void requestOwnName();
    void announce();
    void setHasHost(bool hasHost);

    QDBusConnection m_bus;
    BusNameWatch m_watcher;
    /// What the item is announced as; empty until the bus has answered.
    QString m_name;
    bool m_isAnnounced = false;
    bool m_hasHost = false;
    DBusCall m_nameCall;
    DBusCall m_announcement;
    DBusCall m_hostCall;
};

} // namespace Tarvik
