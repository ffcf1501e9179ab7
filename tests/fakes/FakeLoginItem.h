// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LoginItem.h"

namespace Tarvik {

/// A login item in memory; with an `error` set, nothing can be changed.
class FakeLoginItem final : public LoginItem {
public:
    std::optional<QString> registerItem() override { return change(true); }
    std::optional<QString> unregisterItem() override { return change(false); }
    bool isEnabled() const override { return enabled; }

    /// Somebody else does.
    void enable(bool on)
    {
        enabled = on;
        changed();
    }

    bool enabled = false;
    std::optional<QString> error;

private:
    std::optional<QString> change(bool on)
    {
        if (!error)
            enabled = on;
        return error;
    }
};

} // namespace Tarvik
