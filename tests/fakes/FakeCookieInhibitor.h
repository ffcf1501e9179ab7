// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeInhibitorService.h"

#include <QMap>

namespace Tarvik {

/// A service that hands out cookies and takes them back, as org.freedesktop.ScreenSaver does.
class FakeCookieInhibitor : public FakeInhibitorService {
public:
    FakeCookieInhibitor(QDBusConnection bus,
        const QString& service,
        const QString& path,
        const QString& interface,
        QString releaseMethod = QStringLiteral("UnInhibit"))
        : FakeInhibitorService(std::move(bus), service, path, interface)
        , m_releaseMethod(std::move(releaseMethod))
    {
    }

    QList<QVariantList> held() const override { return m_held.values(); }

    /// A new process knows nothing of its predecessor's cookies.
    void forget() { m_held.clear(); }

protected:
    QDBusMessage grant(const QDBusMessage& call) override
    {
        m_held.insert(++m_lastCookie, call.arguments());
        return call.createReply(m_lastCookie);
    }

    QDBusMessage answerOther(const QDBusMessage& call) override
    {
        if (call.member() != m_releaseMethod || m_held.remove(call.arguments().constFirst().toUInt()) == 0)
            return FakeInhibitorService::answerOther(call);
        return call.createReply();
    }

private:
    QString m_releaseMethod;
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
