// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "ui/mirror/UpdaterMirror.h"

#include "dbus/WireValue.h"
#include "dbus/contracts/TarvikWire.h"

using namespace Qt::StringLiterals;

namespace Tarvik {

UpdaterMirror::UpdaterMirror(const QDBusConnection& bus)
    : PropertyMirror(bus, staticMetaObject, TarvikWire::updaterInterface, {{u"lastUpdateCheckDate"_s, 0.0}})
{
    connect(this, &PropertyMirror::connectedChanged, this, [this] {
        if (isConnected())
            call(u"Prepare"_s);
    });
}

QVariant UpdaterMirror::lastUpdateCheckDate() const
{
    const double seconds = value("lastUpdateCheckDate").toDouble();
    const auto date = seconds > 0 ? WireValue::toDateTime(seconds) : std::nullopt;
    return date ? QVariant(*date) : QVariant();
}

void UpdaterMirror::checkForUpdates()
{
    call(u"CheckForUpdates"_s);
}

} // namespace Tarvik
