// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tarvik {

/// The power of the machine's displays.
class DisplayPower {
public:
    virtual ~DisplayPower() = default;

    /// Switches all displays off until the user does something. The error text comes later, empty on success; not at
    /// all after `wake()` or another call.
    virtual void sleepNow(std::function<void(const QString& error)> done) = 0;

    /// Switches displays on again that `sleepNow()` has switched off, or is about to, and that may stay off otherwise.
    virtual void wake() = 0;
};

} // namespace Tarvik
