// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace Tarvik {

enum class IdleSleepAction {
    /// Set not to do anything.
    nothing,
    suspend,
    hibernate,
    /// Anything else that ends a session's work: shut down, log out.
    other,
};

/// What one service is set to do to a computer that nobody uses, with the power as it is now.
struct IdleSleepRule {
    /// Whose rule it is, for people: "logind", "GNOME", "Plasma", "XFCE", ...
    QString service;
    /// Nothing where it cannot be read: the service runs (an idle daemon with its own configuration), but what it does
    /// and when is its own secret.
    std::optional<IdleSleepAction> action;
    /// After so long without activity; nothing when it is unknown, or there is no action.
    std::optional<std::chrono::seconds> after;

    bool operator==(const IdleSleepRule&) const = default;
};

/// What would put this computer to sleep when nobody uses it.
class IdleSleep {
public:
    virtual ~IdleSleep() = default;

    /// The rules of everybody that is running here, those that are set to nothing included. The answer comes later,
    /// within three seconds, and once; destroying this object drops it.
    virtual void read(std::function<void(const QList<IdleSleepRule>&)> done) = 0;
};

} // namespace Tarvik
