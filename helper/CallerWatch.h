// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SystemdHandle.h"

#include <sys/types.h>

#include <functional>
#include <string>

namespace Tarvik {

/// Follows one connection to the bus by its unique name: tells once whose it is, and when it has left.
class CallerWatch final {
public:
    using Known = std::function<void(uid_t user)>;
    using Gone = std::function<void()>;

    /// `gone` may destroy this object. It is called, too, when the connection had left before.
    CallerWatch(sd_bus* bus, const std::string& caller, Known known, Gone gone);

private:
    static int onOwnerChanged(sd_bus_message* signal, void* watch, sd_bus_error*);
    static int onUser(sd_bus_message* reply, void* watch, sd_bus_error*);
    void leave();

    Known m_known;
    Gone m_gone;
    SlotHandle m_match;
    SlotHandle m_question;
};

} // namespace Tarvik
