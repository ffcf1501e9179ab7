// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "SystemdHandle.h"

#include <functional>
#include <string>

namespace Tarvik {

/// One question to polkit: whether the caller of a method may do what the method does. Destroyed, it asks no more, and
/// a dialog that has opened for it closes.
class Authorization final {
public:
    using Answered = std::function<void(bool isAllowed)>;

    /// `answered` is called once, later, and may destroy this object. A polkit that fails allows nothing.
    Authorization(sd_bus* bus, sd_bus_message* call, Answered answered);
    Authorization(const Authorization&) = delete;
    Authorization& operator=(const Authorization&) = delete;
    ~Authorization();

private:
    static int onAnswer(sd_bus_message* reply, void* authorization, sd_bus_error*);

    sd_bus* m_bus;
    std::string m_caller;
    Answered m_answered;
    SlotHandle m_question;
    bool m_isOpen = true;
};

} // namespace Tarvik
