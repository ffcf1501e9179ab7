// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "Authorization.h"

#include "Log.h"
#include "Patience.h"

#include <cstdint>
#include <utility>

namespace Tarvik {

static constexpr auto service = "org.freedesktop.PolicyKit1";
static constexpr auto path = "/org/freedesktop/PolicyKit1/Authority";
static constexpr auto interface = "org.freedesktop.PolicyKit1.Authority";
static constexpr auto action = "com.morvanta.Tarvik.helper.set-keep-awake";
static constexpr std::uint32_t allowUserInteraction = 1;

Authorization::Authorization(sd_bus* bus, sd_bus_message* call, Answered answered)
    : m_bus(bus)
    , m_caller(sd_bus_message_get_sender(call))
    , m_answered(std::move(answered))
{
    const bool mayAskUser = sd_bus_message_get_allow_interactive_authorization(call) > 0;
    MessageHandle question;
    check(sd_bus_message_new_method_call(bus, Into(question), service, path, interface, "CheckAuthorization"),
        "asking polkit");
    // The subject is the caller's connection, not its process: a process id may be somebody else's by now.
    check(sd_bus_message_append(question.get(),
              "(sa{sv})sa{ss}us",
              "system-bus-name",
              1,
              "name",
              "s",
              m_caller.c_str(),
              action,
              0,
              mayAskUser ? allowUserInteraction : 0,
              m_caller.c_str()),
        "asking polkit");
    const auto patience = std::chrono::microseconds(mayAskUser ? userPatience : servicePatience);
    check(sd_bus_call_async(
              bus, Into(m_question), question.get(), onAnswer, this, static_cast<std::uint64_t>(patience.count())),
        "asking polkit");
}

Authorization::~Authorization()
{
    // Questions are known by the caller's name; there is one of each caller at a time.
    if (m_isOpen)
        sd_bus_call_method_async(m_bus,
            nullptr,
            service,
            path,
            interface,
            "CancelCheckAuthorization",
            nullptr,
            nullptr,
            "s",
            m_caller.c_str());
}

int Authorization::onAnswer(sd_bus_message* reply, void* authorization, sd_bus_error*)
{
    auto* self = static_cast<Authorization*>(authorization);
    int isAllowed = 0;
    int isChallenge = 0;
    if (const sd_bus_error* error = sd_bus_message_get_error(reply))
        logWarning("polkit does not say whether " + self->m_caller + " may: " + error->message);
    else
        self->m_isOpen = sd_bus_message_read(reply, "(bba{ss})", &isAllowed, &isChallenge, 0) < 0;
    // The callback may destroy this object, and so itself.
    const Answered answered = std::move(self->m_answered);
    answered(isAllowed != 0);
    return 0;
}

} // namespace Tarvik
