// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/inhibitors/DBusInhibitor.h"

#include <QDBusMessage>
#include <QList>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace Tarvik {

/// An inhibitor that logind (org.freedesktop.login1.Manager) lists.
struct LogindInhibitor {
    /// "sleep", "idle", "handle-lid-switch", ...
    QStringList what;
    QString who;
    QString why = {};
    /// Of its mode "block", not "delay" or the weaker ones.
    bool blocks = false;
    /// Of its mode "block-weak", which its own user's programs may pass over.
    bool blocksWeakly = false;
    std::uint32_t user = 0;
    /// The process that has taken it.
    std::uint32_t process = 0;

    bool operator==(const LogindInhibitor&) const = default;
};

namespace LogindInhibitors {

/// The call that takes an inhibitor in mode "block"; `what` is a list separated by colons.
InhibitorRequest request(const QString& what, const QString& who, const QString& why);

/// The call that asks for all inhibitors.
QDBusMessage list();

/// What the answer to it consists of; nothing for an error or anything else.
std::optional<QList<LogindInhibitor>> listIn(const QDBusMessage& answer);

} // namespace LogindInhibitors

} // namespace Tarvik
