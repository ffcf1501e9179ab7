// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Clock.h"
#include "platform/HelperService.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace Tarvik {

/// The application's side of the background helper: its installation and the calls to it. Whoever waits for something
/// is called exactly once and never from within the call, unless the manager is destroyed before.
class HelperManager : public QObject {
    Q_OBJECT

public:
    /// `error` says in a sentence for the user why it was not done; it may be empty.
    using Completion = std::function<void(bool ok, const QString& error)>;
    /// `error` is empty on success.
    using ErrorReceiver = std::function<void(const QString& error)>;

    static constexpr Seconds keepAwakePatience{6};
    static constexpr Seconds versionPatience{5};
    /// From the end of the removal to the new registration.
    static constexpr Seconds reinstallPause{0.5};

    /// Both must outlive the manager.
    HelperManager(HelperService& service, Clock& clock);
    ~HelperManager() override;

    /// The connection to the helper, made on first use and again after it has become useless; null when there is
    /// nothing to connect to. Valid until the event loop turns.
    HelperConnection* proxy();

    /// Has the helper keep the machine awake with its lid closed, or no longer.
    void setKeepAwake(bool enabled, Completion done);

    /// Whether the helper answers at all; what it says does not matter.
    void version(Completion done);

    /// Installs the helper. The system may ask the user for a password first, so the answer may take minutes.
    void registerService(ErrorReceiver done);

    /// Takes the helper away, which may fail, and installs it anew. Takes as long as the above.
    void reinstall(ErrorReceiver done);

    /// How far the helper is installed, as the system says now; nothing before it has answered for the first time.
    std::optional<HelperStatus> status() const { return m_service.status(); }

    /// Asks the system for the status anew.
    void refresh() { m_service.refresh(); }

Q_SIGNALS:
    /// The status is known for the first time, or has changed.
    void statusChanged();
    /// Whatever the helper was asked for is void: it has ended, or the way to it is lost.
    void lost();

private:
    struct Call {
        Completion done;
        std::unique_ptr<Timer> timeout;
        /// An answer may still come over a connection that takes no more calls.
        std::shared_ptr<HelperConnection> connection;
    };

    using Request = std::function<void(HelperConnection& connection, const Completion& answer)>;

    void call(Seconds patience, Completion done, const Request& request);
    void finish(quint64 number, bool ok, const QString& error);
    void dropConnection(const HelperConnection* dropped);

    HelperService& m_service;
    Clock& m_clock;
    Subscription m_statusChanges;
    std::shared_ptr<HelperConnection> m_connection;
    /// Those without an answer yet.
    std::map<quint64, Call> m_calls;
    quint64 m_lastCall = 0;
    std::unique_ptr<Timer> m_reinstallPause;
};

} // namespace Tarvik
