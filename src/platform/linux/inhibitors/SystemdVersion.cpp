// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#include "platform/linux/inhibitors/SystemdVersion.h"

#include "dbus/BusNames.h"
#include "dbus/DBusProperties.h"

#include <algorithm>
#include <utility>

namespace Tarvik::SystemdVersion {

using namespace Qt::StringLiterals;

int parse(QStringView text)
{
    if (text.startsWith(u'v'))
        text = text.sliced(1);
    const auto end = std::ranges::find_if(text, [](QChar c) { return c < u'0' || c > u'9'; });
    return text.first(end - text.begin()).toInt();
}

QDBusMessage question()
{
    return DBusProperties::get(
        BusNames::systemd, u"/org/freedesktop/systemd1"_s, u"org.freedesktop.systemd1.Manager"_s, u"Version"_s);
}

int in(const QDBusMessage& answer)
{
    return parse(DBusProperties::exactly<QString>(DBusProperties::propertyIn(answer)).value_or(QString()));
}

DBusCall ask(const QDBusConnection& systemBus, std::function<void(int version)> done)
{
    return callAsync(systemBus, question(), [done = std::move(done)](const QDBusMessage& answer) { done(in(answer)); });
}

} // namespace Tarvik::SystemdVersion
