// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QList>
#include <QStringList>

#include <utility>

namespace Tarvik {

/// org.freedesktop.Notifications, with the capabilities of any daemon and as slow as one likes.
class FakeNotificationDaemon final : public FakeDBusService {
public:
    explicit FakeNotificationDaemon(QDBusConnection bus, QStringList capabilities = {QStringLiteral("body")})
        : FakeDBusService(std::move(bus),
            QStringLiteral("org.freedesktop.Notifications"),
            QStringLiteral("/org/freedesktop/Notifications"))
        , m_capabilities(std::move(capabilities))
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// Refuse every call.
    bool refuses = false;
    /// Leave every call for later.
    bool isSlow = false;

    int capabilityReads = 0;

    /// The arguments of each "Notify", the hints as a QVariantMap.
    QList<QVariantList> notifications;

    void answerNow()
    {
        isSlow = false;
        for (const QDBusMessage& call : std::exchange(m_postponed, {}))
            m_bus.send(answer(call));
    }

    int postponed() const { return static_cast<int>(m_postponed.size()); }

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (isSlow) {
            m_postponed.append(call);
            return {};
        }
        if (refuses)
            return call.createErrorReply(QDBusError::Failed, QStringLiteral("Out of paper"));
        if (call.member() == QStringLiteral("GetCapabilities")) {
            ++capabilityReads;
            return call.createReply(m_capabilities);
        }
        QVariantList arguments = call.arguments();
        arguments[6] = qdbus_cast<QVariantMap>(arguments[6]);
        notifications.append(arguments);
        return call.createReply(static_cast<uint>(notifications.size()));
    }

    QStringList m_capabilities;
    QList<QDBusMessage> m_postponed;
};

} // namespace Tarvik
