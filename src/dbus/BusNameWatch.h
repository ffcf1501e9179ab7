// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <QDBusServiceWatcher>
#include <QHash>
#include <QStringList>

#include <functional>
#include <vector>

namespace Tarvik {

/// Who owns a few well-known names on one bus. Starts no service. A bus without connection has no names.
class BusNameWatch final {
public:
    BusNameWatch(const QDBusConnection& bus, const QStringList& names);
    BusNameWatch(const BusNameWatch&) = delete;
    BusNameWatch& operator=(const BusNameWatch&) = delete;

    /// The bus has answered, or never will.
    bool isKnown() const { return m_known; }
    bool isOwned(const QString& name) const { return m_owners.contains(name); }

    /// The unique name of the owner; empty when there is none. What only this owner can answer, or is only believed
    /// from it, goes by this name: from Qt 6.6 on an answer and a signal no longer tell who has sent them.
    QString owner(const QString& name) const { return m_owners.value(name); }

    /// The bus has told for the first time who owns the names.
    std::function<void()> onKnown;

    /// After `onKnown`: `name` has got another owner, or none any more.
    std::function<void(const QString& name)> onOwnerChange;

    /// Has the bus start the service that belongs to `name`; the owner is then heard of like any other. Drop the answer
    /// to lose interest.
    [[nodiscard]] DBusCall start(const QString& name, std::function<void(bool isStarted)> done = {});

private:
    void askForOwners();
    void readOwner(const QString& name, const QDBusMessage& answer);
    void setOwner(const QString& name, const QString& owner);

    QDBusServiceWatcher m_watcher;
    /// By name.
    QHash<QString, QString> m_owners;
    /// A name has changed hands while the bus was being asked.
    bool m_hasChanged = false;
    bool m_known = false;
    qsizetype m_unanswered = 0;
    std::vector<DBusCall> m_questions;
};

} // namespace Tarvik
