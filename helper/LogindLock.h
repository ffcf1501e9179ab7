// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SystemdHandle.h"

#include "base/FileDescriptor.h"

#include <functional>
#include <string>

namespace Tarvik {

/// The inhibitor that switches sleep and the lid switch off: one file descriptor, of which logind hears when it is
/// closed, in whatever way this process ends. Nothing else of the machine is changed, so nothing can be left behind.
class LogindLock final {
public:
    using Settled = std::function<void(const std::string& error)>;

    /// `settled` is called later, once for each time that the lock was taken: the error is empty when it is held.
    LogindLock(sd_bus* bus, Settled settled);

    /// Nothing happens while the lock is held or being taken.
    void take();
    /// Gives it back, or stops taking it.
    void drop();
    bool isHeld() const { return m_lock.isValid(); }

private:
    static int onLock(sd_bus_message* reply, void* lock, sd_bus_error*);
    static int onOwnerChanged(sd_bus_message* signal, void* lock, sd_bus_error*);
    void request();
    void accept(sd_bus_message* reply);

    sd_bus* m_bus;
    Settled m_settled;
    FileDescriptor m_lock;
    SlotHandle m_request;
    SlotHandle m_ownerMatch;
};

} // namespace Tarvik
