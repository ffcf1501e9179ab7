// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>

namespace Tarvik {

/// One way to switch all displays off and on. Its end switches those on that it has switched off.
class DisplaySwitch {
public:
    using Receiver = std::function<void(const QString& error)>;

    virtual ~DisplaySwitch() = default;

    /// `done` gets the error text, once, at once or later, empty on success. It must not destroy the object.
    virtual void switchOff(Receiver done) = 0;

    /// Where somebody's activity alone would not do that; takes back what `switchOff()` has begun, too.
    virtual void switchOn() = 0;
};

} // namespace Tarvik
