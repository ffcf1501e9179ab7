// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"

#include <QDBusConnection>

#include <functional>

namespace Tarvik {

/// The login that this process belongs to, as logind knows it (org.freedesktop.login1): the session that it runs in, or
/// for a process below the user's systemd the session that logind shows for the user.
class LogindSession final {
public:
    /// `systemBus` is the connection to the system bus.
    explicit LogindSession(QDBusConnection systemBus);

    /// `done` gets later whether the user has logged out. Whatever logind does not tell counts as no. One question is
    /// asked at a time: `done` of an earlier one is not called any more. `done` may destroy the object.
    void askWhetherOver(std::function<void(bool isOver)> done);

private:
    void askForUser();
    void askForDisplay(const QString& userPath);
    void askForState(const QString& sessionPath);
    void ask(const QDBusMessage& question, std::function<void(const QDBusMessage& answer)> take);
    void finish(bool isOver);

    QDBusConnection m_systemBus;
    DBusCall m_question;
    std::function<void(bool isOver)> m_done;
};

} // namespace Tarvik
