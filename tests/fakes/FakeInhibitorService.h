// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusError>
#include <QList>

#include <utility>

namespace Tarvik {

/// A service with an "Inhibit" method that can also refuse, talk nonsense, or think about it.
class FakeInhibitorService : public FakeDBusService {
public:
    enum class Behaviour { grant, refuse, talkNonsense, answerLater };

    FakeInhibitorService(QDBusConnection bus, const QString& service, const QString& path, QString interface)
        : FakeDBusService(std::move(bus), service, path)
        , m_interface(std::move(interface))
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// Of the next calls.
    Behaviour behaviour = Behaviour::grant;
    QString refusal = QDBusError::errorString(QDBusError::AccessDenied);

    /// The arguments of each "Inhibit" so far.
    QList<QVariantList> requests;

    /// The arguments of what is held now, oldest first.
    virtual QList<QVariantList> held() const = 0;

    /// Grants what was left for later.
    void grantNow()
    {
        for (const QDBusMessage& call : std::exchange(m_postponed, {}))
            m_bus.send(grant(call));
    }

protected:
    virtual QDBusMessage grant(const QDBusMessage& call) = 0;
    virtual QDBusMessage answerOther(const QDBusMessage& call)
    {
        return call.createErrorReply(QDBusError::UnknownMethod, call.member());
    }

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (call.interface() != m_interface)
            return call.createErrorReply(QDBusError::UnknownInterface, call.interface());
        if (call.member() != QStringLiteral("Inhibit"))
            return answerOther(call);
        requests.append(call.arguments());
        switch (behaviour) {
        case Behaviour::grant:
            return grant(call);
        case Behaviour::refuse:
            return call.createErrorReply(refusal, QStringLiteral("no"));
        case Behaviour::talkNonsense:
            return call.createReply(QStringLiteral("nonsense"));
        case Behaviour::answerLater:
            m_postponed.append(call);
            return {};
        }
        Q_UNREACHABLE();
    }

    QString m_interface;
    QList<QDBusMessage> m_postponed;
};

} // namespace Tarvik
