// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusVariant>
#include <QMap>

namespace Tarvik {

/// XFCE's settings daemon and the release number of its power manager.
class FakeXfce final {
public:
    FakeXfce(const QDBusConnection& bus, const QString& release)
        : m_powerManager(bus, QStringLiteral("org.xfce.PowerManager"), QStringLiteral("/org/xfce/PowerManager"))
        , m_xfconf(bus, QStringLiteral("org.xfce.Xfconf"), QStringLiteral("/org/xfce/Xfconf"))
    {
        m_powerManager.handler = [this, release](const QDBusMessage& call) {
            ++answered;
            return call.createReply({QStringLiteral("Xfce4 Power Manager"), release, QStringLiteral("Xfce")});
        };
        m_xfconf.handler = [this](const QDBusMessage& call) {
            ++answered;
            const QString property = call.arguments().at(1).toString();
            if (!m_values.contains(property))
                return call.createErrorReply(QStringLiteral("org.xfce.Xfconf.Error.PropertyNotFound"), property);
            return call.createReply(QVariant::fromValue(QDBusVariant(m_values.value(property))));
        };
    }

    bool appear() { return m_xfconf.appear() && m_powerManager.appear(); }
    void vanish()
    {
        m_powerManager.vanish();
        m_xfconf.vanish();
    }

    void set(const QString& name, const QVariant& value)
    {
        m_values.insert(path(name), value);
        m_xfconf.emitSignal(QStringLiteral("org.xfce.Xfconf"),
            QStringLiteral("PropertyChanged"),
            {channel(), path(name), QVariant::fromValue(QDBusVariant(value))});
    }

    void remove(const QString& name)
    {
        m_values.remove(path(name));
        m_xfconf.emitSignal(
            QStringLiteral("org.xfce.Xfconf"), QStringLiteral("PropertyRemoved"), {channel(), path(name)});
    }

    int answered = 0;

private:
    static QString channel() { return QStringLiteral("xfce4-power-manager"); }
    static QString path(const QString& name) { return QStringLiteral("/xfce4-power-manager/") + name; }

    FakeDBusService m_powerManager;
    FakeDBusService m_xfconf;
    QMap<QString, QVariant> m_values;
};

} // namespace Tarvik
