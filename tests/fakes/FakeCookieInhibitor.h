// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusError>
#include <QList>
#include <QMap>

#include <utility>

namespace Tarvik {

/// A service whose "Inhibit" hands out cookies that it takes back, as org.freedesktop.ScreenSaver does. It can also
/// refuse, talk nonsense, or think about it.
class FakeCookieInhibitor : public FakeDBusService {
public:
    enum class Behaviour { grant, refuse, talkNonsense, answerLater };

    FakeCookieInhibitor(QDBusConnection bus,
        const QString& service,
        const QString& path,
        QString interface,
        QString releaseMethod = QStringLiteral("UnInhibit"))
        : FakeDBusService(std::move(bus), service, path)
        , m_interface(std::move(interface))
        , m_releaseMethod(std::move(releaseMethod))
    {
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// Of the next calls.
    Behaviour behaviour = Behaviour::grant;
    QDBusError::ErrorType refusal = QDBusError::AccessDenied;

    /// The arguments of each "Inhibit" so far.
    QList<QVariantList> requests;

    /// The arguments of what is held now, oldest first.
    QList<QVariantList> held() const { return m_held.values(); }

    /// Grants what was left for later.
    void grantNow()
    {
        for (const QDBusMessage& call : std::exchange(m_postponed, {}))
            m_bus.send(grant(call));
    }

    /// A new process knows nothing of its predecessor's cookies.
    void forget() { m_held.clear(); }

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        if (call.interface() != m_interface)
            return call.createErrorReply(QDBusError::UnknownInterface, call.interface());
        if (call.member() == m_releaseMethod && m_held.remove(call.arguments().constFirst().toUInt()) != 0)
            return call.createReply();
        if (call.member() != QStringLiteral("Inhibit"))
            return call.createErrorReply(QDBusError::UnknownMethod, call.member());
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

    QDBusMessage grant(const QDBusMessage& call)
    {
        m_held.insert(++m_lastCookie, call.arguments());
        return call.createReply(m_lastCookie);
    }

    QString m_interface;
    QString m_releaseMethod;
    QList<QDBusMessage> m_postponed;
    QMap<uint, QVariantList> m_held;
    uint m_lastCookie = 100;
};

/// org.gnome.SessionManager, as far as inhibitors go.
class FakeSessionManager final : public FakeCookieInhibitor {
public:
    explicit FakeSessionManager(QDBusConnection bus)
        : FakeCookieInhibitor(std::move(bus),
            QStringLiteral("org.gnome.SessionManager"),
            QStringLiteral("/org/gnome/SessionManager"),
            QStringLiteral("org.gnome.SessionManager"),
            QStringLiteral("Uninhibit"))
    {
    }
};

} // namespace Tarvik
