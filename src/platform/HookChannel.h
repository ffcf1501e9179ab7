// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QMap>
#include <QString>

#include <optional>

namespace Tarvik {

/// Receives what the command-line tool announces from within the agents' hooks.
class HookChannel {
public:
    /// Keys and values of one announcement; nothing when the payload was not a map of strings to strings.
    using Payload = std::optional<QMap<QString, QString>>;

    virtual ~HookChannel() = default;

    /// Told from the event loop for each announcement, in the order of arrival.
    Signal<void(const Payload&)> announced;
};

} // namespace Tarvik
