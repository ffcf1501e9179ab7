// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusError>
#include <QDBusVariant>
#include <QStringList>

namespace Tarvik {

/// org.kde.StatusNotifierWatcher of a panel: keeps the names under which items announce themselves.
class FakeStatusNotifierWatcher final : public FakeDBusService {
public:
    explicit FakeStatusNotifierWatcher(QDBusConnection bus)
        : FakeDBusService(
            std::move(bus), QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"))
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// A panel that shows items comes or goes.
    void setHost(bool isThere)
    {
        hasHost = isThere;
        emitSignal(service(),
            isThere ? QStringLiteral("StatusNotifierHostRegistered") : QStringLiteral("StatusNotifierHostUnregistered"),
            {});
    }

    bool hasHost = true;
    /// Knows no properties.
    bool isPoor = false;
    /// Takes no items.
    bool refuses = false;
    int refusals = 0;
    QStringList items;

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (call.member() == QStringLiteral("RegisterStatusNotifierItem")) {
            if (refuses) {
                ++refusals;
                return call.createErrorReply(QDBusError::LimitsExceeded, QStringLiteral("The panel is full"));
            }
            items.append(call.arguments().constFirst().toString());
            return call.createReply();
        }
        if (isPoor)
            return call.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("There are no properties"));
        return call.createReply(QVariant::fromValue(QDBusVariant(hasHost)));
    }
};

} // namespace Tarvik
