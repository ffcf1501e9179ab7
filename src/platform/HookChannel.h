// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QMap>
#include <QString>

#include <functional>
#include <optional>

namespace Tarvik {

/// Receives what the command-line tool announces from within the agents' hooks.
class HookChannel {
public:
    /// Keys and values of one announcement; nothing when the payload was not a map of strings to strings.
    using Payload = std::optional<QMap<QString, QString>>;

    virtual ~HookChannel() = default;

    /// Called from the event loop for each announcement, in the order of arrival.
    std::function<void(const Payload&)> onNotification;
};

} // namespace Tarvik
