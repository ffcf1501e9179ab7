// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeHelperConnection.h"
#include "platform/HelperService.h"

#include <utility>

namespace Tarvik {

/// An installation of the helper that goes on when the test says so. `calls` tells what was asked of the system and of
/// the helper, in order.
class FakeHelperService final : public HelperService {
public:
    std::optional<HelperStatus> status() const override { return current; }

    void refresh() override { calls.append(QStringLiteral("refresh")); }

    void registerService(std::function<void(const QString& error)> done) override
    {
        calls.append(QStringLiteral("register"));
        m_done = std::move(done);
    }

    void unregisterService(std::function<void(const QString& error)> done) override
    {
        calls.append(QStringLiteral("unregister"));
        m_done = std::move(done);
    }

    std::unique_ptr<HelperConnection> connect() override
    {
        ++connects;
        if (!isReachable)
            return {};
        auto made = std::make_unique<FakeHelperConnection>(calls, [this] { --living; });
        ++living;
        connection = made.get();
        return made;
    }

    /// The system says something new of the helper.
    void setStatus(HelperStatus status)
    {
        current = status;
        statusChanged();
    }

    /// The registration, or its removal, has come to an end; `error` is empty on success.
    void finish(const QString& error = {})
    {
        if (!m_done)
            qFatal("nothing is under way");
        std::exchange(m_done, nullptr)(error);
    }

    std::optional<HelperStatus> current;
    bool isReachable = true;
    QStringList calls;
    int connects = 0;
    /// Connections that exist, and the last one made.
    int living = 0;
    FakeHelperConnection* connection = nullptr;

private:
    std::function<void(const QString& error)> m_done;
};

} // namespace Tarvik
