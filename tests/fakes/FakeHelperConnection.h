// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/HelperConnection.h"

#include <QStringList>

#include <deque>
#include <utility>

namespace Tarvik {

/// A connection to a helper that answers when the test says so.
class FakeHelperConnection final : public HelperConnection {
public:
    /// Notes in `calls` what the helper is asked for; `destroyed` is called at the end.
    FakeHelperConnection(QStringList& calls, std::function<void()> destroyed)
        : m_calls(calls)
        , m_destroyed(std::move(destroyed))
    {
    }
    ~FakeHelperConnection() override { m_destroyed(); }
    FakeHelperConnection(const FakeHelperConnection&) = delete;
    FakeHelperConnection& operator=(const FakeHelperConnection&) = delete;

    void setKeepAwake(
        bool enabled, std::function<void(bool ok, const QString& error)> reply, ErrorHandler failed) override
    {
        m_calls.append(enabled ? QStringLiteral("on") : QStringLiteral("off"));
        m_waiting.push_back({std::move(reply), std::move(failed)});
    }

    void heartbeat() override { m_calls.append(QStringLiteral("heartbeat")); }

    void version(std::function<void(const QString& version)> reply, ErrorHandler failed) override
    {
        m_calls.append(QStringLiteral("version"));
        m_waiting.push_back(
            {[reply = std::move(reply)](bool, const QString& text) { reply(text); }, std::move(failed)});
    }

    /// Calls that have not been answered.
    std::size_t waiting() const { return m_waiting.size(); }

    /// Answers the oldest of them; to a question for the version, with `text`.
    void reply(bool ok, const QString& text = {}) { next().reply(ok, text); }

    /// Has the oldest of them end in an error of the connection.
    void fail(const QString& error) { next().failed(error); }

    void invalidate() const
    {
        if (onInvalidated)
            onInvalidated();
    }

    void interrupt() const
    {
        if (onInterrupted)
            onInterrupted();
    }

private:
    struct Waiting {
        std::function<void(bool ok, const QString& text)> reply;
        ErrorHandler failed;
    };

    Waiting next()
    {
        if (m_waiting.empty())
            qFatal("the helper has not been asked for anything");
        Waiting first = std::move(m_waiting.front());
        m_waiting.pop_front();
        return first;
    }

    QStringList& m_calls;
    std::function<void()> m_destroyed;
    std::deque<Waiting> m_waiting;
};

} // namespace Tarvik
