// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCalls.h"
#include "platform/linux/locks/LockAnswers.h"

#include <functional>
#include <memory>

namespace Tarvik {

/// The inhibitors of org.gnome.SessionManager: of the session managers of GNOME, MATE, Cinnamon and Budgie.
class SessionManagerLocks final {
public:
    /// Sends a call to the session bus and hands over its answer.
    using Send = std::function<void(const QDBusMessage& call, std::function<void(const QDBusMessage& answer)> take)>;

    /// `done` gets those that concern sleep, or nothing where the session manager does not list them.
    SessionManagerLocks(Send send, std::function<void(const std::optional<QList<ListedLock>>& locks)> done);

    void ask();

private:
    struct Inhibitor;

    void describe(const QStringList& paths);
    void ask(const QString& path, const QString& method, std::function<void(const QVariant& value)> take);
    void askForProcess(const std::shared_ptr<Inhibitor>& inhibitor, const QString& client);
    void countDown();

    Send m_send;
    std::function<void(const std::optional<QList<ListedLock>>& locks)> m_done;
    QList<std::shared_ptr<Inhibitor>> m_inhibitors;
    int m_unanswered = 0;
};

} // namespace Tarvik
