// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"

#include <QMetaType>
#include <QString>

#include <optional>

namespace Tarvik {

/// One lease: an agent's conversation that is in the middle of a turn.
struct HookSession {
    /// Stays the same for one conversation; there is one lease per key.
    QString key;
    /// The agent's HookSpec id, or what the sender gave instead.
    QString tool;
    std::optional<QString> reason;
    /// When the lease was taken; renewing does not move it.
    TimePoint acquiredAt;
    /// When the lease lapses unless renewed or released.
    TimePoint expiresAt;

    bool isLive(TimePoint now) const { return expiresAt > now; }

    bool operator==(const HookSession&) const = default;
};

} // namespace Tarvik

Q_DECLARE_METATYPE(Tarvik::HookSession)
