// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbus/DBusCall.h"

#include <QDBusServiceWatcher>
#include <QStringList>

#include <functional>

namespace Tarvik {

/// Which of a few well-known names have an owner on one bus. Starts no service. A bus without connection has no names.
class BusNameWatch final {
public:
    BusNameWatch(const QDBusConnection& bus, const QStringList& names);
    BusNameWatch(const BusNameWatch&) = delete;
    BusNameWatch& operator=(const BusNameWatch&) = delete;

    /// The bus has answered, or never will.
    bool isKnown() const { return m_known; }
    bool isOwned(const QString& name) const { return m_owned.contains(name); }

    /// The bus has told for the first time which names are owned.
    std::function<void()> onKnown;

    /// After `onKnown`: `name` has got another owner, or none any more.
    std::function<void(const QString& name)> onOwnerChange;

private:
    void askForNames();
    void readNames(const QDBusMessage& answer);
    void setOwner(const QString& name, const QString& owner);

    QDBusServiceWatcher m_watcher;
    QStringList m_owned;
    /// A name has changed hands while the bus was being asked.
    bool m_hasChanged = false;
    bool m_known = false;
    DBusCall m_listing;
};

} // namespace Tarvik
