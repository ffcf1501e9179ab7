// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/PortalRequest.h"
#include "platform/HotKeys.h"

#include <QObject>
#include <QStringList>

#include <vector>

namespace Tarvik {

/// Shortcuts of org.freedesktop.portal.GlobalShortcuts, version 1. Super, Alt and the letter are a proposal: the user,
/// or the compositor's configuration, decides. Starts the portal where it is not running.
class PortalHotKeys final : public HotKeys {
public:
    /// `bus` is a connection to the session bus on which nothing else speaks to the portal: a program without a
    /// sandbox says who it is by the first call of its connection.
    explicit PortalHotKeys(QDBusConnection bus);
    ~PortalHotKeys() override;

    [[nodiscard]] std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyRequest& request) override;

private:
    class Registration;

    void receivePress(const QDBusMessage& signal);
    void receiveClosed(const QDBusMessage& signal);

    /// The shortcuts of a session are bound once, all together, so that a change needs another session.
    void restartSoon();
    void followOwner();
    void start();
    void introduce();
    void readVersion();
    void receiveVersion(const QDBusMessage& answer);
    void createSession();
    void bindShortcuts();
    void closeSession();
    void setRegistered(const QStringList& names);

    QDBusConnection m_bus;
    BusNameWatch m_names;
    /// The portal's unique name; only it is believed.
    QString m_owner;
    std::unique_ptr<DBusSignal> m_presses;
    std::unique_ptr<DBusSignal> m_closures;
    bool m_isIntroduced = false;
    bool m_isRestartScheduled = false;
    std::vector<Registration*> m_registrations;
    DBusCall m_call;
    std::unique_ptr<PortalRequest> m_request;
    QString m_session;
    QObject m_eventLoop;
};

} // namespace Tarvik
