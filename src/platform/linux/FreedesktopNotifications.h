// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/BusNameWatch.h"
#include "dbus/DBusCall.h"
#include "platform/UserNotifications.h"

#include <map>
#include <optional>
#include <vector>

namespace Tarvik {

/// org.freedesktop.Notifications, version 1.2 of the Desktop Notifications Specification. The bus starts the desktop's
/// notification daemon where it is not running and it knows how. Nobody is asked for permission there: authorisation is
/// granted when a daemon answers, be it that the desktop starts it only after us.
class FreedesktopNotifications final : public UserNotifications {
public:
    /// `icon` is a name in the icon theme or a file's URI.
    FreedesktopNotifications(QDBusConnection sessionBus, QString icon);
    FreedesktopNotifications(const FreedesktopNotifications&) = delete;
    FreedesktopNotifications& operator=(const FreedesktopNotifications&) = delete;

    void requestAuthorization(std::function<void(bool granted, const QString& error)> done) override;
    void post(const QString& identifier,
        const QString& title,
        const QString& body,
        std::function<void(const QString& error)> done) override;

private:
    using Receiver = std::function<void(const QString& error)>;

    void answerRequests();
    void afterReadingCapabilities(Receiver next);
    void readCapabilities();
    void receiveCapabilities(const QDBusMessage& answer);
    void followOwner();
    void notify(const QString& title, const QString& body, Receiver done);

    QDBusConnection m_bus;
    QString m_icon;
    BusNameWatch m_names;
    /// The unique name of the daemon that is running.
    QString m_owner;
    /// Whether the daemon that is running reads the body as markup; unknown until it has told.
    std::optional<bool> m_readsMarkup;
    DBusCall m_capabilitiesCall;
    /// The daemon that was asked has lost its name meanwhile.
    bool m_askedPredecessor = false;
    /// A daemon has appeared since the last question.
    bool m_hasAppeared = false;
    /// When last asked, there was no daemon.
    bool m_isAbsent = false;
    std::vector<std::function<void(bool granted, const QString& error)>> m_requests;
    std::vector<Receiver> m_waiting;
    std::map<unsigned, DBusCall> m_posts;
    unsigned m_lastPost = 0;
};

} // namespace Tarvik
