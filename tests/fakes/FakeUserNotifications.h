// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/UserNotifications.h"

#include <QList>

namespace Tarvik {

/// Keeps what was posted; answers at once with `granted`, `authorizationError` and `postError`.
class FakeUserNotifications final : public UserNotifications {
public:
    struct Posted {
        QString identifier;
        QString title;
        QString body;
    };

    void requestAuthorization(std::function<void(bool, const QString&)> done) override
    {
        ++authorizationRequests;
        done(granted, authorizationError);
    }

    void post(const QString& identifier,
        const QString& title,
        const QString& body,
        std::function<void(const QString&)> done) override
    {
        posted.append({identifier, title, body});
        done(postError);
    }

    /// "title: body" of every notification.
    QStringList texts() const
    {
        QStringList list;
        for (const Posted& notification : posted)
            list.append(notification.title + QStringLiteral(": ") + notification.body);
        return list;
    }

    bool granted = true;
    QString authorizationError;
    QString postError;
    int authorizationRequests = 0;
    QList<Posted> posted;
};

} // namespace Tarvik
