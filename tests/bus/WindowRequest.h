// SPDX-FileCopyrightText: 2026 The Tarvik authors
// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusMessage>
#include <QDBusVariant>
#include <QStringList>

namespace Tarvik {

/// What a window wants done, "METHOD ARGUMENT..." or "set PROPERTY VALUE"; empty for what it only looks at, and for
/// what comes whenever a window becomes active.
inline QString windowRequest(const QDBusMessage& message)
{
    QStringList words;
    for (const QVariant& argument : message.arguments()) {
        const bool isWrapped = argument.canConvert<QDBusVariant>();
        words.append((isWrapped ? argument.value<QDBusVariant>().variant() : argument).toString());
    }
    const bool isOfTarvik = message.interface().startsWith(QStringLiteral("com.morvanta."));
    const bool isLook = message.member() == QStringLiteral("RefreshHelperStatus")
        || message.member() == QStringLiteral("RunningApplications") || message.member() == QStringLiteral("Explain");
    if (isOfTarvik && !isLook)
        return (QStringList(message.member()) + words).join(QLatin1Char(' '));
    if (message.member() == QStringLiteral("Set"))
        return QStringLiteral("set ") + words.mid(1).join(QLatin1Char(' '));
    return {};
}

} // namespace Tarvik
