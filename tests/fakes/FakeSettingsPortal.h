// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/FakeDBusService.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QMap>

namespace Tarvik {

/// org.freedesktop.portal.Desktop with the settings that it is given.
class FakeSettingsPortal final : public FakeDBusService {
public:
    using Groups = QMap<QString, QVariantMap>;

    static constexpr auto appearanceGroup = "org.freedesktop.appearance";
    static constexpr auto interfaceGroup = "org.gnome.desktop.interface";

    explicit FakeSettingsPortal(const QDBusConnection& bus)
        : FakeDBusService(
            bus, QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"))
    {
        qDBusRegisterMetaType<Groups>();
        handler = [this](const QDBusMessage& call) { return call.createReply(QVariant::fromValue(settings)); };
    }

    /// Of an accent colour; components from 0 to 1.
    static QVariant rgb(double red, double green, double blue)
    {
        QDBusArgument argument;
        argument.beginStructure();
        argument << red << green << blue;
        argument.endStructure();
        return QVariant::fromValue(argument);
    }

    /// Announces a setting, whatever it was before.
    void change(const QString& group, const QString& key, const QVariant& value)
    {
        emitSignal(QStringLiteral("org.freedesktop.portal.Settings"),
            QStringLiteral("SettingChanged"),
            {group, key, QVariant::fromValue(QDBusVariant(value))});
    }

    Groups settings;
};

} // namespace Tarvik
