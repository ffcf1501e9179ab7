// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/linux/dbus/DBusCall.h"

#include <QObject>
#include <QVariantMap>

#include <functional>

namespace Tarvik {

/// One call of a desktop portal whose answer is the signal Response of an org.freedesktop.portal.Request object.
/// Destroying it withdraws the request.
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    /// Sends `call` with `arguments` and `options`, which come last. `done` gets what the response holds, or nothing
    /// when the request has failed or the user has refused. It may destroy the request.
    PortalRequest(QDBusConnection bus,
        QDBusMessage call,
        QVariantList arguments,
        QVariantMap options,
        std::function<void(const QVariantMap* results)> done);
    ~PortalRequest() override;
    PortalRequest(const PortalRequest&) = delete;
    PortalRequest& operator=(const PortalRequest&) = delete;

private Q_SLOTS:
    void receiveResponse(const QDBusMessage& signal);

private:
    void receiveAnswer(const QDBusMessage& answer);
    void finish(const QVariantMap* results);

    QDBusConnection m_bus;
    QString m_path;
    bool m_isFinished = false;
    std::function<void(const QVariantMap* results)> m_done;
    DBusCall m_call;
};

} // namespace Tarvik
