// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QList>
#include <QStringList>

namespace Tarvik {

/// org.kde.kglobalaccel, as far as one component goes.
class FakeKGlobalAccel final : public FakeDBusService {
public:
    explicit FakeKGlobalAccel(QDBusConnection bus)
        : FakeDBusService(std::move(bus), QStringLiteral("org.kde.kglobalaccel"), QStringLiteral("/kglobalaccel"))
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// Another program has the keys, or the user wants none.
    bool isTaken = false;
    bool refuses = false;
    bool isSlow = false;

    /// Every call as "method(action id)" with keys and flags.
    QStringList calls;
    QStringList active;

    void press(const QString& action, const QString& component = QStringLiteral("com.morvanta.Tarvik"))
    {
        auto signal = QDBusMessage::createSignal(QStringLiteral("/component/com_morvanta_Tarvik"),
            QStringLiteral("org.kde.kglobalaccel.Component"),
            QStringLiteral("globalShortcutPressed"));
        signal.setArguments({component, action, qlonglong{1}});
        m_bus.send(signal);
    }

    void answerNow()
    {
        isSlow = false;
        for (const QDBusMessage& call : std::exchange(m_postponed, {}))
            m_bus.send(answer(call));
    }

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (isSlow) {
            m_postponed.append(call);
            return {};
        }
        const QStringList actionId = call.arguments().constFirst().toStringList();
        QString line = call.member() + u'(' + actionId.join(u", ") + u')';
        if (call.member() == QStringLiteral("setShortcut")) {
            const auto keys = qdbus_cast<QList<int>>(call.arguments().at(1));
            line += QStringLiteral(" %1 %2").arg(keys.constFirst()).arg(call.arguments().at(2).toUInt());
            calls.append(line);
            if (refuses)
                return call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("Not on the list"));
            active.append(actionId.at(1));
            return call.createReply(QVariant::fromValue(isTaken ? QList<int>{0} : keys));
        }
        calls.append(line);
        if (call.member() == QStringLiteral("setInactive"))
            active.removeAll(actionId.at(1));
        return call.createReply();
    }

    QList<QDBusMessage> m_postponed;
};

} // namespace Tarvik
