// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/SettingsMirror.h"

#include "dbus/contracts/ModelTypes.h"
#include "dbus/contracts/TarvikWire.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace Tarvik {

SettingsMirror::SettingsMirror(const QDBusConnection& bus)
    : PropertyMirror(bus,
        staticMetaObject,
        TarvikWire::settingsInterface,
        {{u"allowlist"_s, QVariant::fromValue(QList<AllowlistedApp>())}})
{
    registerModelTypes();
}

QVariantList SettingsMirror::allowlist() const
{
    QVariantList rows;
    for (const auto& app : value("allowlist").value<QList<AllowlistedApp>>())
        rows.append(QVariantMap{{u"bundleID"_s, app.bundleID}, {u"name"_s, app.name}});
    return rows;
}

void SettingsMirror::addToAllowlist(const QString& bundleID, const QString& name)
{
    call(u"AddToAllowlist"_s, {bundleID, name});
}

void SettingsMirror::removeFromAllowlist(const QString& bundleID)
{
    call(u"RemoveFromAllowlist"_s, {bundleID});
}

void SettingsMirror::askForRunningApplications(std::function<void(const QStringList& ids)> done)
{
    call(u"RunningApplications"_s, {}, [done = std::move(done)](const QDBusMessage& answer) {
        done(answer.signature() == "as"_L1 ? answer.arguments().constFirst().toStringList() : QStringList());
    });
}

} // namespace Tarvik
