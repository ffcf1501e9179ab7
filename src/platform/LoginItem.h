// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Signal.h"

#include <QString>

#include <optional>

namespace Tarvik {

/// The entry that starts the application when the user logs in.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    /// Both give an error text on failure and nothing on success.
    virtual std::optional<QString> registerItem() = 0;
    virtual std::optional<QString> unregisterItem() = 0;

    /// What the desktop will really do at the next login; read anew at every call.
    virtual bool isEnabled() const = 0;

    /// `isEnabled()` may have changed, by whomever.
    Signal<void()> changed;
};

} // namespace Tarvik
