// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"
#include "platform/HelperConnection.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace Tarvik {

/// How far the background helper is installed.
enum class HelperStatus {
    notRegistered = 0,
    /// Installed, and starts when it is called.
    enabled = 1,
    /// Installed, but the administrator of the machine has to allow it.
    requiresApproval = 2,
    /// This copy of the application comes without a helper.
    notFound = 3,
};

/// The installation of the background helper on this machine.
class HelperService {
public:
    virtual ~HelperService() = default;

    /// As the system last told, and followed from then on; nothing before it has told for the first time.
    virtual std::optional<HelperStatus> status() const = 0;

    /// The status is known for the first time, or has changed.
    Signal<void()> statusChanged;

    /// Asks the system anew, for what changes without an announcement.
    virtual void refresh() = 0;

    /// Installs the helper, which may ask the user for an administrator's password. The error text comes later, empty
    /// on success, and after `status()` has been read anew.
    virtual void registerService(std::function<void(const QString& error)> done) = 0;

    /// Takes away what `registerService()` has installed, unless registering again replaces all of it anyway; what a
    /// package has installed stays. Asks the user for nothing that registering will ask for again. `done` as above.
    virtual void unregisterService(std::function<void(const QString& error)> done) = 0;

    /// A connection to the helper, which is started by the first call; null when there is nothing to connect to.
    [[nodiscard]] virtual std::unique_ptr<HelperConnection> connect() = 0;
};

} // namespace Tarvik
