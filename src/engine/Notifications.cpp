// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "engine/Notifications.h"

#include "core/Logging.h"
#include "platform/UserNotifications.h"

#include <QUuid>

namespace Tarvik {

void Notifications::requestAuthorization()
{
    m_service.requestAuthorization([](bool granted, const QString& error) {
        if (!error.isEmpty())
            qCCritical(logNotify, "Notification authorization failed: %s", qUtf8Printable(error));
        else if (!granted)
            qCInfo(logNotify, "Notification authorization denied");
    });
}

void Notifications::post(const QString& title, const QString& body)
{
    const QString identifier = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_service.post(identifier, title, body, [](const QString& error) {
        if (!error.isEmpty())
            qCCritical(logNotify, "Notification failed: %s", qUtf8Printable(error));
    });
}

} // namespace Tarvik
