// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"
#include "platform/linux/hotkeys/PortalShortcut.h"

#include <QDBusError>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>

namespace Tarvik {

/// org.freedesktop.portal.Desktop with its global shortcuts.
class FakePortal final : public FakeDBusService {
public:
    explicit FakePortal(QDBusConnection bus)
        : FakeDBusService(std::move(bus),
            QStringLiteral("org.freedesktop.portal.Desktop"),
            QStringLiteral("/org/freedesktop/portal/desktop"),
            QDBusConnection::SubPath)
    {
        registerPortalShortcuts();
        handler = [this](const QDBusMessage& call) { return answer(call); };
    }

    /// 0 is a portal without global shortcuts.
    uint version = 1;
    bool knowsRegistry = true;
    /// 1: the user has refused; 2: failed.
    uint bindResponse = 0;
    /// Told to be bound, whatever was asked for.
    std::optional<QStringList> bound;
    bool respondsBeforeItAnswers = false;
    bool isAskingTheUser = false;

    /// "Interface.method" without what all have in common.
    QStringList calls;
    QString applicationId;
    PortalShortcutList shortcuts;
    QString session;

    void press(const QString& name) { press(name, session); }
    void press(const QString& name, const QString& ofSession)
    {
        emitSignal(QStringLiteral("org.freedesktop.portal.GlobalShortcuts"),
            QStringLiteral("Activated"),
            {QVariant::fromValue(QDBusObjectPath(ofSession)), name, qulonglong{1}, QVariantMap()});
    }

    void closeSession()
    {
        m_bus.send(QDBusMessage::createSignal(
            session, QStringLiteral("org.freedesktop.portal.Session"), QStringLiteral("Closed")));
    }

    /// The user has decided.
    void respondToBinding() { respond(m_bindRequest, bindResponse, boundShortcuts()); }

private:
    QDBusMessage answer(const QDBusMessage& call)
    {
        const QString interface = call.interface().section(u'.', -1);
        calls.append(interface + u'.' + call.member());
        if (interface == QStringLiteral("Registry"))
            return introduce(call);
        if (interface == QStringLiteral("Properties")) {
            return version == 0 ? call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("No such interface"))
                                : call.createReply(QVariant::fromValue(QDBusVariant(version)));
        }
        if (call.member() == QStringLiteral("CreateSession"))
            return createSession(call);
        if (call.member() == QStringLiteral("BindShortcuts"))
            return bindShortcuts(call);
        return call.createReply();
    }

    QDBusMessage introduce(const QDBusMessage& call)
    {
        if (!knowsRegistry)
            return call.createErrorReply(QDBusError::UnknownMethod, QStringLiteral("No such interface"));
        // Like the real one, it wants to hear it first.
        if (calls.size() > 1 && calls.at(calls.size() - 2) != QStringLiteral("Session.Close"))
            return call.createErrorReply(QDBusError::Failed, QStringLiteral("Connection already associated"));
        applicationId = call.arguments().constFirst().toString();
        return call.createReply();
    }

    QDBusMessage createSession(const QDBusMessage& call)
    {
        const auto options = qdbus_cast<QVariantMap>(call.arguments().constFirst());
        session = objectPath(call, QStringLiteral("session"), options.value(QStringLiteral("session_handle_token")));
        return request(call, options, 0, {{QStringLiteral("session_handle"), session}});
    }

    QDBusMessage bindShortcuts(const QDBusMessage& call)
    {
        shortcuts = qdbus_cast<PortalShortcutList>(call.arguments().at(1));
        const auto options = qdbus_cast<QVariantMap>(call.arguments().at(3));
        if (call.arguments().constFirst().value<QDBusObjectPath>().path() != session)
            return call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("Invalid session"));
        if (isAskingTheUser) {
            m_bindRequest = objectPath(call, QStringLiteral("request"), options.value(QStringLiteral("handle_token")));
            return call.createReply(QVariant::fromValue(QDBusObjectPath(m_bindRequest)));
        }
        return request(call, options, bindResponse, boundShortcuts());
    }

    QVariantMap boundShortcuts() const
    {
        PortalShortcutList list;
        for (const PortalShortcut& shortcut : shortcuts) {
            if (!bound || bound->contains(shortcut.name))
                list.append(shortcut);
        }
        return bindResponse == 0 ? QVariantMap{{QStringLiteral("shortcuts"), QVariant::fromValue(list)}}
                                 : QVariantMap();
    }

    QDBusMessage request(const QDBusMessage& call, const QVariantMap& options, uint code, const QVariantMap& results)
    {
        const QString path = objectPath(call, QStringLiteral("request"), options.value(QStringLiteral("handle_token")));
        const QDBusMessage reply = call.createReply(QVariant::fromValue(QDBusObjectPath(path)));
        if (respondsBeforeItAnswers) {
            respond(path, code, results);
            return reply;
        }
        m_bus.send(reply);
        respond(path, code, results);
        return {};
    }

    void respond(const QString& path, uint code, const QVariantMap& results)
    {
        auto signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal.setArguments({code, results});
        m_bus.send(signal);
    }

    static QString objectPath(const QDBusMessage& call, const QString& kind, const QVariant& token)
    {
        QString sender = call.service().mid(1);
        sender.replace(u'.', u'_');
        return QStringLiteral("/org/freedesktop/portal/desktop/%1/%2/%3").arg(kind, sender, token.toString());
    }

    QString m_bindRequest;
};

} // namespace Tarvik
