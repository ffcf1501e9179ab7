// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "dbus/DBusCall.h"
#include "dbus/DBusSignal.h"

#include <QVariantMap>

#include <functional>
#include <memory>

namespace Tarvik {

/// One call of a desktop portal whose answer is the signal Response of an org.freedesktop.portal.Request object.
/// Destroying it withdraws the request.
class PortalRequest final {
public:
    /// Sends `call` with `arguments` and `options`, which come last. `done` gets what the response holds, or nothing
    /// when the request has failed or the user has refused. It may destroy the request.
    PortalRequest(QDBusConnection bus,
        QDBusMessage call,
        QVariantList arguments,
        QVariantMap options,
        std::function<void(const QVariantMap* results)> done);
    ~PortalRequest();
    PortalRequest(const PortalRequest&) = delete;
    PortalRequest& operator=(const PortalRequest&) = delete;

private:
    void receiveResponse(const QDBusMessage& signal);
    void receiveAnswer(const QDBusMessage& answer);
    void finish(const QVariantMap* results);

    QDBusConnection m_bus;
    QString m_path;
    bool m_isFinished = false;
    std::function<void(const QVariantMap* results)> m_done;
    DBusCall m_call;
    std::unique_ptr<DBusSignal> m_response;
};

} // namespace Tarvik
