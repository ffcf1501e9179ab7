// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>

namespace Tarvik {

/// org.freedesktop.portal.FileChooser, in which the user has chosen already.
class FakeFileChooser {
public:
    explicit FakeFileChooser(QDBusConnection bus)
        : m_bus(std::move(bus))
    {
    }

    static bool isMeant(const QDBusMessage& call)
    {
        return call.member() == QStringLiteral("OpenFile") || call.member() == QStringLiteral("Get");
    }

    QDBusMessage answer(const QDBusMessage& call)
    {
        if (!isOffered)
            return call.createErrorReply(QDBusError::UnknownInterface, QStringLiteral("No such interface"));
        if (call.member() == QStringLiteral("Get"))
            return call.createReply(QVariant::fromValue(QDBusVariant(3U)));
        parentWindow = call.arguments().at(0).toString();
        title = call.arguments().at(1).toString();
        options = qdbus_cast<QVariantMap>(call.arguments().at(2));
        QString sender = call.service().mid(1);
        sender.replace(u'.', u'_');
        const QString path = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2")
                                 .arg(sender, options[QStringLiteral("handle_token")].toString());
        m_bus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(path))));
        auto signal = QDBusMessage::createSignal(
            path, QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"));
        signal.setArguments({chosen.isEmpty() ? 1U : 0U, QVariantMap{{QStringLiteral("uris"), chosen}}});
        m_bus.send(signal);
        return {};
    }

    bool isOffered = true;
    /// Addresses of files; without any the user cancels.
    QStringList chosen;
    /// What the last dialog was asked for with.
    QString parentWindow;
    QString title;
    QVariantMap options;

private:
    QDBusConnection m_bus;
};

} // namespace Tarvik
