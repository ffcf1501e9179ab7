// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusError>
#include <QStringList>
#include <QVariantMap>

#include <utility>

namespace Tarvik {

/// org.kde.StatusNotifierWatcher of a desktop: keeps the names under which items announce themselves.
class FakeStatusNotifierWatcher final : public FakeDBusService {
public:
    explicit FakeStatusNotifierWatcher(QDBusConnection bus)
        : FakeDBusService(
            std::move(bus), QStringLiteral("org.kde.StatusNotifierWatcher"), QStringLiteral("/StatusNotifierWatcher"))
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// A tray that shows items comes or goes.
    void setHost(bool isThere)
    {
        hasHost = isThere;
        emitSignal(service(),
            isThere ? QStringLiteral("StatusNotifierHostRegistered") : QStringLiteral("StatusNotifierHostUnregistered"),
            {});
    }

    /// Items are lost without having gone.
    void loseItems()
    {
        for (const QString& item : std::exchange(m_listed, {}))
            emitSignal(service(), QStringLiteral("StatusNotifierItemUnregistered"), {item});
    }

    bool hasHost = true;
    /// What an item is called in the list, with its name as NAME.
    QString notation = QStringLiteral("NAME/StatusNotifierItem");
    /// Cannot tell which items it has.
    bool hasNoList = false;
    /// How many of the next announcements come to nothing, without a word.
    int forgets = 0;
    /// Knows no properties.
    bool isPoor = false;
    /// Takes no items.
    bool refuses = false;
    int refusals = 0;
    /// How often it was asked for its properties.
    int questions = 0;
    /// The names that have been announced, as often as they were.
    QStringList items;

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (call.member() == QStringLiteral("RegisterStatusNotifierItem")) {
            if (refuses) {
                ++refusals;
                return call.createErrorReply(QDBusError::LimitsExceeded, QStringLiteral("The tray is full"));
            }
            const QString name = call.arguments().constFirst().toString();
            items.append(name);
            if (forgets > 0)
                --forgets;
            else
                m_listed.append(QString(notation).replace(QStringLiteral("NAME"), name));
            return call.createReply();
        }
        ++questions;
        if (isPoor)
            return call.createErrorReply(QDBusError::UnknownProperty, QStringLiteral("There are no properties"));
        QVariantMap properties{{QStringLiteral("IsStatusNotifierHostRegistered"), hasHost}};
        if (!hasNoList)
            properties[QStringLiteral("RegisteredStatusNotifierItems")] = m_listed;
        return call.createReply(properties);
    }

    QStringList m_listed;
};

} // namespace Tarvik
