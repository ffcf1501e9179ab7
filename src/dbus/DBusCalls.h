// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <map>
#include <utility>

namespace Tarvik {

/// Any number of method calls that are under way; destroying it drops their answers.
class DBusCalls final {
public:
    /// As callAsync.
    void send(const QDBusConnection& bus,
        const QDBusMessage& message,
        std::function<void(const QDBusMessage& answer)> done,
        const CallOptions& options = {})
    {
        const int id = ++m_lastId;
        const auto finish = [this, id, done = std::move(done)](const QDBusMessage& answer) {
            m_calls.erase(id);
            done(answer);
        };
        m_calls.emplace(id, callAsync(bus, message, finish, options));
    }

    bool isEmpty() const { return m_calls.empty(); }

private:
    std::map<int, DBusCall> m_calls;
    int m_lastId = 0;
};

} // namespace Tarvik
